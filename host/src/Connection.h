// Which plug feeds which. Both nodes list a connection, which ends with either of them.
#pragma once

#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

#include <vector>

namespace OpenVornik::Internal {

struct Connection {
    VPlug source;
    VPlug destination;

    friend bool operator==(const Connection& a, const Connection& b) noexcept {
        return a.source == b.source && a.destination == b.destination;
    }
};

struct Connections {
    std::vector<Connection> incoming;
    std::vector<Connection> outgoing;
};

// Whether the two could ever be connected.
bool isConnectable(const Connection& connection) noexcept;
// Fails if the destination is connected already.
VStatus connect(const Connection& connection);
// Fails if there is no such connection.
VStatus disconnect(const Connection& connection);
void disconnectAll(Node& node);

}  // namespace OpenVornik::Internal
