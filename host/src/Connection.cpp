#include "host/src/Connection.h"

#include "host/src/Node.h"
#include "host/src/PlugAccess.h"

#include <algorithm>

namespace OpenVornik::Internal {

namespace {

Connections& of(const VPlug& plug) noexcept { return PlugAccess::node(plug)->connections; }

bool removeFrom(std::vector<Connection>& connections, const Connection& connection) {
    const auto found = std::find(connections.begin(), connections.end(), connection);
    if (found == connections.end()) return false;
    connections.erase(found);
    return true;
}

}  // namespace

bool isConnectable(const Connection& connection) noexcept {
    const auto& [source, destination] = connection;
    if (source.isNull() || destination.isNull() || source == destination) return false;
    const Attribute& from = *PlugAccess::attribute(source);
    const Attribute& to = *PlugAccess::attribute(destination);
    return from.readable && to.writable &&
           PlugAccess::isWholeArray(source) == PlugAccess::isWholeArray(destination) &&
           haveSameValueShape(from, to);
}

VStatus connect(const Connection& connection) {
    std::vector<Connection>& incoming = of(connection.destination).incoming;
    for (const Connection& present : incoming) {
        if (present.destination == connection.destination) return VStatus::kFailure;
    }
    incoming.push_back(connection);
    of(connection.source).outgoing.push_back(connection);
    return VStatus::kSuccess;
}

VStatus disconnect(const Connection& connection) {
    if (!removeFrom(of(connection.destination).incoming, connection)) return VStatus::kNotFound;
    removeFrom(of(connection.source).outgoing, connection);
    return VStatus::kSuccess;
}

void disconnectAll(Node& node) {
    while (!node.connections.incoming.empty()) {
        disconnect(Connection(node.connections.incoming.back()));
    }
    while (!node.connections.outgoing.empty()) {
        disconnect(Connection(node.connections.outgoing.back()));
    }
}

}  // namespace OpenVornik::Internal
