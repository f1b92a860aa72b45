// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

class VObject {
public:
    static const VObject kNullObj;

    VObject(const VObject& other);
    VObject& operator=(const VObject& other);
    ~VObject();

private:
    void* m_word;  // the framework lays one out in a NodeEditContext
};

bool operator==(const VObject& a, const VObject& b);
bool operator!=(const VObject& a, const VObject& b);
