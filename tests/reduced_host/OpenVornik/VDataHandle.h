// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>

class VDataHandle {
public:
    VDataHandle(const VDataHandle& other);
    VDataHandle& operator=(const VDataHandle& other);
    ~VDataHandle();

    VDataHandle child(const VPlug& plug);
    VMatrix& asMatrix();
    VString& asString();
    double& asDouble();
    void setString(const VString& value);
    void setDouble(double value);
};
