// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

class VStatus {
public:
    VStatus();  // a success
    bool error();
};
