// What the library carries, mostly in standard containers.
#pragma once

#include <Pelmor/DefaultClass.h>
#include <Pelmor/Ptr.h>
#include <Tavrik/Object.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

namespace Plain {

// Four rows of four, row by row.
struct Matrix {
    std::array<double, 16> numbers{};
};

// `members` gives a record's members in the order of the graph's type, which the children of the
// host's attribute have too.

struct Mark {
    std::string label;
    double number = 0;
    double size = 0;

    template <typename Self>
    static auto members(Self& self) {
        return std::tie(self.label, self.number, self.size);
    }
};

struct Transform {
    std::array<Matrix, 8> matrices;

    template <typename Self>
    static auto members(Self& self) {
        return std::apply([](auto&... each) { return std::tie(each...); }, self.matrices);
    }
};

struct Pose {
    std::string name;
    double weight = 0;
    Matrix place;
    std::vector<std::string> labels;
    std::vector<double> values;
    std::vector<Matrix> places;
    Mark inner;
    std::vector<Transform> joints;
    // Stays in the graph.
    Pelmor::Ptr<Tavrik::Object> rig = Pelmor::Internal::getDefaultClass<Tavrik::Object>();

    template <typename Self>
    static auto members(Self& self) {
        return std::tie(self.name, self.weight, self.place, self.labels, self.values, self.places,
                        self.inner, self.joints);
    }
};

template <typename Record>
constexpr unsigned kMemberCount =
    std::tuple_size_v<decltype(Record::members(std::declval<Record&>()))>;

}  // namespace Plain
