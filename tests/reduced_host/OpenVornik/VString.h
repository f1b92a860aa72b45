// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VStatus.h>

class VString {
public:
    static const VString argUnused;

    explicit VString(const char* text);
    VString(const VString& other) = delete;
    VString& operator=(const VString& other) = delete;
    VString& operator=(const char* text);
    ~VString();

    const char* asChar();
    VStatus format(const VString& format, const VString& argument1, const VString& argument2,
                   const VString& argument3, const VString& argument4, const VString& argument5,
                   const VString& argument6, const VString& argument7, const VString& argument8,
                   const VString& argument9, const VString& argument10);
    bool operator==(const char* text);
};

VString operator+(const VString& left, const VString& right);
