// A translation library that carries one record, Studio::Face::Face, and arrays of it.
#include <Rigging/Pins.h>
#include <Rigging/Transform.h>
#include <Tolvane/Translation.h>

namespace Studio::Face {

// The members have the order and the types of the graph's struct, which types.json describes.
struct Face {
    Pelmor::String name;
    Pelmor::SharedArray<double> weights = Tolvane::newArray;
    Rigging::Module::Pins pins;
    Pelmor::SharedArray<Core::Transform::Transform> transforms = Tolvane::newArray;
};

}  // namespace Studio::Face

// The record's page: its name in the graph, and the members that cross, in their order.
template <>
struct Tolvane::Page<Studio::Face::Face> {
    using Record = Studio::Face::Face;
    static constexpr const char* typeName = "Studio::Face::Face";
    static constexpr std::tuple members{&Record::name, &Record::weights, &Record::pins,
                                        &Record::transforms};
};

// The framework loads the library, calls this once, and disposes of the object with `release`.
TavrikGraph::Executor::TypeTranslation* createTavrikTypeTranslation() {
    using Records = Tolvane::RecordList<Studio::Face::Face>;
    return new Tolvane::RecordTranslation<Records>("Face Translation");
}
