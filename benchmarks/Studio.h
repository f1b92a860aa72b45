// What the benchmarks work on: the built plugin, loaded as the framework loads it, and host nodes
// with one port each.
#pragma once

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

namespace Benchmarks {

TavrikGraph::Executor::TypeTranslation& plugin();

// How long the arrays are that a port is filled with.
struct Lengths {
    // Of the port's own array or, where it is no array, of those in its record.
    unsigned outer = 0;
    // Of the arrays in the records of an array.
    unsigned inner = 10;
    // Of arrays of texts; as the other arrays, if not.
    bool areNamed = true;
};

class HostPort {
public:
    // A node with one input port. Nothing may fail here.
    explicit HostPort(const char* typeName);
    HostPort(const HostPort&) = delete;
    HostPort& operator=(const HostPort&) = delete;

    // Elements that are there already stay as they are.
    void fill(const Lengths& lengths);

    // By the plugin.
    void read(Pelmor::AnyValue& value);
    Pelmor::AnyValue read();
    void write(const Pelmor::AnyValue& value);

    Pelmor::Type type;
    VObject node;
    VPlug plug;
    VDataBlock block;
};

}  // namespace Benchmarks
