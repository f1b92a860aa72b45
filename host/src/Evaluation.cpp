#include "host/src/Evaluation.h"

#include "host/src/Node.h"
#include "host/src/PlugAccess.h"
#include "host/src/Storage.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace OpenVornik::Internal {

namespace {

VStatus evaluateUnit(const Attribute& unit, const VPlug& asked);

bool areRelated(const Attribute& a, const Attribute& b) noexcept {
    return a.isAtOrAbove(b) || b.isAtOrAbove(a);
}

void keepFirstFailure(VStatus& outcome, VStatus next) {
    if (!outcome.error()) outcome = next;
}

bool isConnected(const Attribute& attribute) {
    const std::vector<Connection>& incoming = attribute.node()->connections.incoming;
    return std::any_of(incoming.begin(), incoming.end(), [&](const Connection& connection) {
        return PlugAccess::attribute(connection.destination) == &attribute;
    });
}

// A connection or a computation fills an attribute as a whole, so that is evaluated as a whole: the
// outermost attribute, this one or one above it, that is connected or computed.
const Attribute& unitOf(const Attribute& attribute) {
    const Attribute* unit = &attribute;
    for (const Attribute* above = &attribute; above; above = above->parent()) {
        if (!above->writable || isConnected(*above)) unit = above;
    }
    return *unit;
}

// Asks the source for its value and copies it here.
VStatus pull(const Connection& connection) {
    const VStatus outcome = evaluate(connection.source);
    Node& node = *PlugAccess::node(connection.destination);
    std::byte* from = PlugAccess::node(connection.source)->findData(connection.source);
    if (!from) return outcome;
    std::byte* to = node.addData(connection.destination);
    const Attribute& attribute = *PlugAccess::attribute(connection.destination);
    if (PlugAccess::isWholeArray(connection.destination)) {
        copySlot(attribute, to, from);
    } else {
        copyValue(attribute, to, from);
    }
    return outcome;
}

VStatus pullInto(const Attribute& unit) {
    VStatus outcome;
    // By position, because a compute on the way may change the list.
    const std::vector<Connection>& incoming = unit.node()->connections.incoming;
    for (std::size_t i = 0; i < incoming.size(); ++i) {
        const Connection connection = incoming[i];
        if (!unit.isAtOrAbove(*PlugAccess::attribute(connection.destination))) continue;
        keepFirstFailure(outcome, pull(connection));
    }
    return outcome;
}

VStatus compute(const Attribute& attribute, const VPlug& asked) {
    Node& node = *attribute.node();
    if (!node.compute) return VStatus::kSuccess;
    VDataBlock block = node.dataBlock();
    return node.compute(PlugAccess::whole(attribute, asked), block);
}

// Computes what is computed in `unit`: all of it, or what it has further down.
VStatus computeWithin(const Attribute& unit, const VPlug& asked) {
    if (!unit.writable) return compute(unit, asked);
    VStatus outcome;
    const std::vector<Attribute*>& attributes = unit.node()->attributes();
    for (unsigned i = unit.index(); i < unit.endIndex(); ++i) {
        if (attributes[i]->writable) continue;
        keepFirstFailure(outcome, evaluateUnit(*attributes[i], asked));
    }
    return outcome;
}

// Notes what is being evaluated, so that a cycle comes to an end.
class Evaluating {
public:
    explicit Evaluating(const Attribute& attribute) : m_list(attribute.node()->evaluating) {
        m_list.push_back(&attribute);
    }
    Evaluating(const Evaluating&) = delete;
    Evaluating& operator=(const Evaluating&) = delete;
    ~Evaluating() { m_list.pop_back(); }

private:
    std::vector<const Attribute*>& m_list;
};

bool isBeingEvaluated(const Attribute& attribute) {
    const std::vector<const Attribute*>& list = attribute.node()->evaluating;
    return std::find(list.begin(), list.end(), &attribute) != list.end();
}

VStatus evaluateUnit(const Attribute& unit, const VPlug& asked) {
    if (unit.node()->isClean(unit) || isBeingEvaluated(unit)) return VStatus::kSuccess;
    const Evaluating evaluating(unit);
    VStatus outcome = pullInto(unit);
    keepFirstFailure(outcome, computeWithin(unit, asked));
    unit.node()->markClean(unit);
    return outcome;
}

// Calls `visit` with each attribute that is to be dirty when `attribute` is.
template <typename Visit>
void visitDependents(const Attribute& attribute, Visit visit) {
    const Node& node = *attribute.node();
    for (const Connection& connection : node.connections.outgoing) {
        if (areRelated(*PlugAccess::attribute(connection.source), attribute)) {
            visit(*PlugAccess::attribute(connection.destination));
        }
    }
    if (!attribute.writable) return;
    for (const Attribute* other : node.attributes()) {
        if (!other->writable) visit(*other);
    }
}

}  // namespace

VStatus evaluate(const VPlug& plug) {
    const Attribute& attribute = *PlugAccess::attribute(plug);
    if (attribute.node()->isClean(attribute)) return VStatus::kSuccess;
    return evaluateUnit(unitOf(attribute), plug);
}

void makeDirty(const Attribute& attribute) {
    std::vector<const Attribute*> reached{&attribute};
    std::unordered_set<const Attribute*> known{&attribute};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const Attribute& dirty = *reached[i];
        dirty.node()->markDirty(dirty);
        visitDependents(dirty, [&](const Attribute& dependent) {
            if (known.insert(&dependent).second) reached.push_back(&dependent);
        });
    }
}

}  // namespace OpenVornik::Internal
