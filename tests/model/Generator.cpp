#include "tests/model/Generator.h"

#include "tests/model/Content.h"

namespace ModelTests {
namespace {

using namespace Model;

constexpr std::size_t kMostSteps = 40;
constexpr std::size_t kMostLongSteps = 10;
constexpr unsigned kLong = 257;
constexpr unsigned kVeryLong = 65537;

// A range of the failing operations.
struct Calls {
    unsigned first;
    unsigned count;
};
constexpr Calls kWriting{0, 20};
constexpr Calls kReading{13, 11};

class Generator {
public:
    explicit Generator(Choices& choices) : m_choices(choices), m_content(choices) {}

    Sequence sequence() {
        const unsigned length = longLength(m_choices);
        const unsigned failing = length == 0 && m_choices.oneIn(8) ? 1 + m_choices.below(3) : 0;
        addPorts(failing > 0 ? 3 : length);
        if (length > 0 || failing > 0) goThereAndBack(failing > 0 ? 3 : length, failing);
        while (m_sequence.steps.size() < (length > 0 ? kMostLongSteps : kMostSteps)) {
            m_choices.beginPart();
            if (m_choices.below(25) == 0) break;
            m_sequence.steps.push_back(step());
        }
        return std::move(m_sequence);
    }

private:
    void addPorts(unsigned length) {
        for (unsigned count = 1 + m_choices.below(3); count > 0; --count) {
            const std::string& type = m_ports.empty() ? typeWithLongArray(length) : carriedType();
            m_sequence.ports.push_back({type, !m_choices.oneIn(3)});
            m_ports.push_back(makePort(type, true));
        }
    }

    // The chosen one, or the next in the list that may have so many elements.
    const std::string& typeWithLongArray(unsigned length) {
        const std::vector<std::string>& types = carriedTypes();
        std::size_t i = m_choices.below(static_cast<unsigned>(types.size()));
        while (length > 0 && longArrays(shapeOf(types[i]), length) == 0) i = (i + 1) % types.size();
        return types[i];
    }

    // Writes an array of `length` by growing and in place, reads it, and writes an empty one. The
    // host ends each walk at the element that is `failing`, counted from 1, unless that is 0.
    void goThereAndBack(unsigned length, unsigned failing) {
        const std::string& type = m_sequence.ports[0].type;
        const Shape& shape = shapeOf(type);
        const auto at = [&](std::string_view operation) {
            return failing > 0 ? std::vector{Failure{operation, failing, 1}}
                               : std::vector<Failure>();
        };
        m_sequence.steps = {Make{0, HeldValue{type, m_content.longGraphValue(shape, length)}},
                            Write{0, {}, {}},
                            Write{0, {}, at("VArrayDataHandle::outputValue")},
                            Read{type, {}, 1, at("VArrayDataHandle::next")},
                            Make{0, HeldValue{type, defaultValue(shape)}},
                            Write{0, {}, at("VArrayDataBuilder::removeElement")}};
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
        return Read{type, at, holder(), failures(kReading)};
    }

    Step write() {
        // The same again, which is in place by now.
        if (m_isWritten && m_choices.oneIn(3)) return Write{m_from, m_to, failures(kWriting)};
        m_isWritten = true;
        m_from = holder();
        m_to = place();
        return Write{m_from, m_to, failures(kWriting)};
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

    // Every other failure is early, as most arrays are short.
    std::vector<Failure> failures(const Calls& calls) {
        std::vector<Failure> failures;
        while (failures.size() < 3 && m_choices.oneIn(2)) {
            const std::string_view operation =
                failingOperations()[calls.first + m_choices.below(calls.count)];
            const unsigned most = m_choices.oneIn(2) ? 3 : 1u << m_choices.below(8);
            const unsigned nth = 1 + m_choices.below(most);
            failures.push_back({operation, nth, 1 + static_cast<int>(m_choices.below(3))});
        }
        return failures;
    }

    std::size_t port() { return m_choices.below(static_cast<unsigned>(m_sequence.ports.size())); }
    std::size_t holder() { return m_choices.below(kHolders); }

    const std::string& carriedType() {
        return carriedTypes()[m_choices.below(static_cast<unsigned>(carriedTypes().size()))];
    }
    std::string uncarriedType() {
        static const std::string kTypes[] = {"double", "array<Math::double4x4>",
                                             "array<" + carriedTypes().back() + ">", "Object"};
        return kTypes[m_choices.below(4)];
    }

    Choices& m_choices;
    Content m_content;
    Sequence m_sequence;
    // For their shape.
    std::vector<Port> m_ports;
    // What was written last, and where.
    bool m_isWritten = false;
    std::size_t m_from = 0;
    Place m_to;
};

}  // namespace

unsigned longLength(Choices& choices) {
    if (!choices.oneIn(128)) return 0;
    return (choices.oneIn(16) ? kVeryLong : kLong) - choices.below(3);
}

Sequence makeSequence(Choices& choices) { return Generator(choices).sequence(); }

const std::vector<std::string_view>& failingOperations() {
    static const std::vector<std::string_view> operations{"VArrayDataBuilder::addElement",
                                                          "VArrayDataBuilder::elementCount",
                                                          "VArrayDataHandle::builder",
                                                          "VArrayDataHandle::set",
                                                          "VArrayDataHandle::setAllClean",
                                                          "VDataBlock::outputValue",
                                                          "VDataBlock::setClean",
                                                          "VDataHandle::setDouble",
                                                          "VDataHandle::setString",
                                                          "VGlobal::displayError",
                                                          "VPlug::attribute",
                                                          "VArrayDataBuilder::removeElement",
                                                          "VArrayDataHandle::outputValue",
                                                          "VArrayDataHandle::next",
                                                          "VArrayDataHandle::VArrayDataHandle",
                                                          "VArrayDataHandle::elementCount",
                                                          "VDataHandle::asMatrix",
                                                          "VDataHandle::child",
                                                          "VPlug::child",
                                                          "VPlug::elementByLogicalIndex",
                                                          "VArrayDataHandle::inputValue",
                                                          "VDataBlock::inputValue",
                                                          "VDataHandle::asDouble",
                                                          "VDataHandle::asString"};
    return operations;
}

}  // namespace ModelTests
