// What one would do without a plugin: a record as JSON in a host node's text attribute, parsed and
// written anew at each evaluation.
#pragma once

#include "benchmarks/Floor.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>

namespace Benchmarks {

class JsonPort {
public:
    JsonPort();
    JsonPort(const JsonPort&) = delete;
    JsonPort& operator=(const JsonPort&) = delete;

    Floor::Inputs read();
    void write(const Floor::Inputs& record);

private:
    VObject m_node;
    VPlug m_plug;
    VDataBlock m_block;
};

}  // namespace Benchmarks
