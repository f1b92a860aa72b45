#include "host/src/Connection.h"
#include "host/src/Evaluation.h"
#include "host/src/Node.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"

#include <OpenVornik/VDGModifier.h>

#include <utility>
#include <variant>
#include <vector>

using namespace OpenVornik::Internal;

namespace {

// `carryOut` does all of an operation's work or fails. `takeBack` undoes it; operations are undone
// in reverse order. `settle` does what must wait until no operation can fail any more.
class AttributeAddition {
public:
    AttributeAddition(const VObject& node, const VObject& attribute)
        : m_node(node), m_attribute(attribute) {}

    VStatus carryOut() const { return nodeOf(m_node)->add(*attributeOf(m_attribute)); }
    void takeBack() const { nodeOf(m_node)->removeLast(); }
    void settle() const {}

private:
    VObject m_node;
    VObject m_attribute;
};

// Keeps the nodes of both plugs alive, which the plugs do not.
class ConnectionChange {
public:
    explicit ConnectionChange(const Connection& connection)
        : m_sourceNode(handleTo(PlugAccess::node(connection.source))),
          m_destinationNode(handleTo(PlugAccess::node(connection.destination))),
          m_connection(connection) {}

protected:
    const Connection& connection() const noexcept { return m_connection; }

private:
    VObject m_sourceNode;
    VObject m_destinationNode;
    Connection m_connection;
};

class ConnectionMaking : public ConnectionChange {
public:
    using ConnectionChange::ConnectionChange;

    VStatus carryOut() const { return OpenVornik::Internal::connect(connection()); }
    void takeBack() const { OpenVornik::Internal::disconnect(connection()); }
    void settle() const { makeDirty(*PlugAccess::attribute(connection().destination)); }
};

class ConnectionBreaking : public ConnectionChange {
public:
    using ConnectionChange::ConnectionChange;

    VStatus carryOut() const { return OpenVornik::Internal::disconnect(connection()); }
    void takeBack() const { OpenVornik::Internal::connect(connection()); }
    void settle() const {}
};

using Operation = std::variant<AttributeAddition, ConnectionMaking, ConnectionBreaking>;

}  // namespace

struct VDGModifier::Operations {
    std::vector<Operation> queue;
};

VDGModifier::VDGModifier() : m_operations(std::make_unique<Operations>()) {}
VDGModifier::~VDGModifier() = default;

VStatus VDGModifier::doIt() {
    const VStatus answer = refusal("VDGModifier::doIt", Nothing());
    if (answer.error()) return answer;
    const std::vector<Operation> queue = std::exchange(m_operations->queue, {});
    for (auto next = queue.begin(); next != queue.end(); ++next) {
        const VStatus status = std::visit([](const auto& todo) { return todo.carryOut(); }, *next);
        if (!status.error()) continue;
        while (next != queue.begin()) {
            std::visit([](const auto& done) { done.takeBack(); }, *--next);
        }
        return status;
    }
    for (const Operation& operation : queue) {
        std::visit([](const auto& done) { done.settle(); }, operation);
    }
    return VStatus::kSuccess;
}

VStatus VDGModifier::addAttribute(const VObject& node, const VObject& attribute) {
    const VStatus answer = refusal("VDGModifier::addAttribute", node, attribute);
    if (answer.error()) return answer;
    const Attribute* added = attributeOf(attribute);
    if (!nodeOf(node) || !added) return VStatus::kInvalidParameter;
    if (added->parent() || added->node()) return VStatus::kFailure;
    m_operations->queue.emplace_back(AttributeAddition(node, attribute));
    return VStatus::kSuccess;
}

VStatus VDGModifier::connect(const VPlug& source, const VPlug& destination) {
    const VStatus answer = refusal("VDGModifier::connect", source, destination);
    if (answer.error()) return answer;
    const Connection connection{source, destination};
    if (!isConnectable(connection)) return VStatus::kInvalidParameter;
    m_operations->queue.emplace_back(ConnectionMaking(connection));
    return VStatus::kSuccess;
}

VStatus VDGModifier::disconnect(const VPlug& source, const VPlug& destination) {
    const VStatus answer = refusal("VDGModifier::disconnect", source, destination);
    if (answer.error()) return answer;
    if (source.isNull() || destination.isNull()) return VStatus::kInvalidParameter;
    m_operations->queue.emplace_back(ConnectionBreaking({source, destination}));
    return VStatus::kSuccess;
}
