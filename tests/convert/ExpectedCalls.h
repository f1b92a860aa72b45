// The host calls that reading or writing a record takes, in their order, for records whose arrays
// have one element each. What is done with a child and in which order the children come is the same
// for all of them; each derived class says what its leaves and its arrays take.
#pragma once

#include "tests/convert/Translators.h"
#include "tests/support/CallRecorder.h"

#include <string>
#include <type_traits>

namespace TestSupport {

using Lines = CallRecorder::Lines;

inline Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

// An attribute or an element as plugs name it, and as data names it.
struct Place {
    std::string plug = "node.value";
    std::string data = "value";

    Place child(const std::string& name) const { return {plug + '.' + name, data + '.' + name}; }
    Place element() const { return {plug + "[0]", data + "[]"}; }
};

class ExpectedCalls {
public:
    virtual ~ExpectedCalls() = default;

    template <typename Record>
    Lines ofRecord(const Place& at = {}) const {
        if constexpr (std::is_same_v<Record, Transform>) {
            Lines lines;
            for (const char* digit : {"0", "1", "2", "3", "4", "5", "6", "7"})
                lines = lines + child(at, digit, std::string("matrix") + digit) +
                        matrix(at.child(std::string("matrix") + digit));
            return lines;
        } else if constexpr (std::is_same_v<Record, NamedTransforms>) {
            return names(at) + child(at, "1", "transforms") +
                   ofArray<Transform>(at.child("transforms"));
        } else if constexpr (std::is_same_v<Record, Pins>) {
            return names(at) + matrices(at);
        } else if constexpr (std::is_same_v<Record, InputsJoints>) {
            return names(at) + matrices(at) + nested<NamedTransforms>(at, "2", "namedTransforms");
        } else if constexpr (std::is_same_v<Record, InputsControls>) {
            const Place weights = at.child("weights_A");
            return names(at) + matrices(at) + child(at, "2", "weights_A") +
                   array(weights, number(weights.element())) +
                   nested<NamedTransforms>(at, "3", "namedTransforms");
        } else if constexpr (std::is_same_v<Record, Inputs>) {
            return nested<Pins>(at, "0", "pins") + nested<InputsJoints>(at, "1", "joints") +
                   nested<InputsControls>(at, "2", "controls0") +
                   nested<InputsControls>(at, "3", "controls1");
        } else {
            static_assert(std::is_same_v<Record, Outputs>);
            return child(at, "0", "name") + text(at.child("name")) + nested<Pins>(at, "1", "pins") +
                   nested<NamedTransforms>(at, "2", "namedTransforms0") +
                   nested<NamedTransforms>(at, "3", "namedTransforms1") +
                   nested<NamedTransforms>(at, "4", "namedTransforms2");
        }
    }

    template <typename Record>
    Lines ofArray(const Place& at = {}) const {
        return array(at, Lines{"VPlug::elementByLogicalIndex " + at.plug + " 0"} +
                             ofRecord<Record>(at.element()));
    }

private:
    virtual Lines text(const Place& at) const = 0;
    virtual Lines number(const Place& at) const = 0;
    virtual Lines array(const Place& at, const Lines& element) const = 0;

    static Lines matrix(const Place& at) { return {"VDataHandle::asMatrix " + at.data}; }

    static Lines child(const Place& at, const std::string& index, const std::string& name) {
        return {"VPlug::child " + at.plug + ' ' + index,
                "VDataHandle::child " + at.data + ' ' + at.child(name).plug};
    }
    template <typename Record>
    Lines nested(const Place& at, const std::string& index, const std::string& name) const {
        return child(at, index, name) + ofRecord<Record>(at.child(name));
    }
    Lines names(const Place& at) const {
        const Place names = at.child("names");
        return child(at, "0", "names") + array(names, text(names.element()));
    }
    Lines matrices(const Place& at) const {
        const Place matrices = at.child("matrices");
        return child(at, "1", "matrices") + array(matrices, matrix(matrices.element()));
    }
};

}  // namespace TestSupport
