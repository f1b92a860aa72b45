// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

class VMatrix {
public:
    ~VMatrix();

private:
    double m_values[4][4];  // a host may call them otherwise
};
