#include "tests/model/Generator.h"

#include "tests/model/Content.h"

namespace ModelTests {
namespace {

using namespace Model;

constexpr std::size_t kMostSteps = 40;

class Generator {
public:
    explicit Generator(Choices& choices) : m_choices(choices), m_content(choices) {}

    Sequence sequence() {
        addPorts();
        while (m_sequence.steps.size() < kMostSteps) {
            m_choices.beginPart();
            if (m_choices.below(25) == 0) break;
            m_sequence.steps.push_back(step());
        }
        return std::move(m_sequence);
    }

private:
    void addPorts() {
        for (unsigned count = 1 + m_choices.below(3); count > 0; --count) {
            m_sequence.ports.push_back({carriedType(), !m_choices.oneIn(3)});
            m_ports.push_back(makePort(m_sequence.ports.back().type, true));
        }
    }

    Step step() {
        const unsigned choice = m_choices.below(20);
        if (choice < 6) return write();
        if (choice < 12) return read();
        if (choice < 15) return fill();
        if (choice < 18) return make();
        if (choice < 19) return Copy{holder(), holder()};
        return Dirty{place()};
    }

    Step read() {
        const Place at = place();
        std::string type = typeAt(at);
        if (m_choices.oneIn(5)) type = m_choices.oneIn(8) ? uncarriedType() : carriedType();
        return Read{type, at, holder(), failures()};
    }

    Step write() {
        const std::size_t from = holder();
        return Write{from, place(), failures()};
    }

    Step fill() {
        const std::size_t filled = port();
        return Fill{filled, m_content.hostNode(*m_ports[filled].attribute)};
    }

    Step make() {
        const std::size_t into = holder();
        if (m_choices.oneIn(8)) return Make{into, {}};
        std::string type = m_sequence.ports[port()].type;
        if (m_choices.oneIn(6)) type = m_choices.oneIn(8) ? "string" : carriedType();
        return Make{into, HeldValue{type, m_content.graphValue(shapeOf(type))}};
    }

    // Mostly a whole port. Below a port that its node computes, what is marked with what is the
    // host's own affair.
    Place place() {
        Place place{static_cast<unsigned>(port()), {}};
        if (!m_sequence.ports[place.port].isInput) return place;
        const HostAttribute* attribute = m_ports[place.port].attribute.get();
        bool isElement = false;
        while (m_choices.oneIn(5)) {
            if (attribute->isArray && !isElement) {
                isElement = true;
                place.path.push_back(m_choices.below(4));
            } else if (!attribute->children.empty()) {
                const auto count = static_cast<unsigned>(attribute->children.size());
                place.path.push_back(m_choices.below(count));
                attribute = attribute->children[place.path.back()].get();
                isElement = false;
            } else {
                break;
            }
        }
        return place;
    }

    // The carried type that fits, else that of the port.
    std::string typeAt(const Place& place) {
        const Shape* shape = &shapeOf(m_sequence.ports[place.port].type);
        for (const unsigned part : place.path)
            shape = shape->kind == Kind::Array ? shape->parts[0] : shape->parts[part];
        return isCarried(shape->name) ? shape->name : m_sequence.ports[place.port].type;
    }

    std::vector<Failure> failures() {
        std::vector<Failure> failures;
        while (failures.size() < 3 && m_choices.oneIn(3)) {
            const auto& operations = failingOperations();
            const auto count = static_cast<unsigned>(operations.size());
            const std::string_view operation = operations[m_choices.below(count)];
            const unsigned nth = 1 + m_choices.below(1u << m_choices.below(8));
            failures.push_back({operation, nth, 1 + static_cast<int>(m_choices.below(3))});
        }
        return failures;
    }

    std::size_t port() { return m_choices.below(static_cast<unsigned>(m_sequence.ports.size())); }
    std::size_t holder() { return m_choices.below(kHolders); }

    const std::string& carriedType() { return carriedTypes()[m_choices.below(14)]; }
    std::string uncarriedType() {
        static constexpr const char* kTypes[] = {"double", "array<Math::double4x4>",
                                                 "array<array<Rigging::Module::Pins>>", "Object"};
        return kTypes[m_choices.below(4)];
    }

    Choices& m_choices;
    Content m_content;
    Sequence m_sequence;
    // For their shape.
    std::vector<Port> m_ports;
};

}  // namespace

Sequence makeSequence(Choices& choices) { return Generator(choices).sequence(); }

const std::vector<std::string_view>& failingOperations() {
    static const std::vector<std::string_view> operations{"VArrayDataHandle::next",
                                                          "VArrayDataHandle::outputValue",
                                                          "VArrayDataBuilder::removeElement",
                                                          "VArrayDataBuilder::addElement",
                                                          "VArrayDataBuilder::elementCount",
                                                          "VArrayDataHandle::VArrayDataHandle",
                                                          "VArrayDataHandle::builder",
                                                          "VArrayDataHandle::elementCount",
                                                          "VArrayDataHandle::inputValue",
                                                          "VArrayDataHandle::set",
                                                          "VArrayDataHandle::setAllClean",
                                                          "VDataBlock::inputValue",
                                                          "VDataBlock::outputValue",
                                                          "VDataBlock::setClean",
                                                          "VDataHandle::asDouble",
                                                          "VDataHandle::asMatrix",
                                                          "VDataHandle::asString",
                                                          "VDataHandle::child",
                                                          "VDataHandle::setDouble",
                                                          "VDataHandle::setString",
                                                          "VGlobal::displayError",
                                                          "VPlug::attribute",
                                                          "VPlug::child",
                                                          "VPlug::elementByLogicalIndex"};
    return operations;
}

}  // namespace ModelTests
