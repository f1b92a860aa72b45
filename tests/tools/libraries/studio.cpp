// A translation library that carries a record of its own, which it names twice. It also names
// Absent::Face, which it gives attributes but no values. With the fault "names nothing known"
// that is all it names.
#include <Rigging/Pins.h>
#include <Rigging/Transform.h>
#include <Tolvane/RecordTranslation.h>
#include <Tolvane/convert/Read.h>
#include <Tolvane/convert/Write.h>

#include <cstdlib>
#include <string_view>

namespace Studio {

struct Face {
    Pelmor::String label;
    Pelmor::SharedArray<double> weights = Tolvane::newArray;
    Rigging::Module::Pins pins;
    Pelmor::SharedArray<Core::Transform::Transform> transforms = Tolvane::newArray;
};

}  // namespace Studio

template <>
struct Tolvane::Page<Studio::Face> {
    using Record = Studio::Face;
    static constexpr const char* typeName = "Studio::Face";
    static constexpr std::tuple members{&Record::label, &Record::weights, &Record::pins,
                                        &Record::transforms};
};

template struct Tolvane::Translators<Studio::Face>;

namespace {

class StudioTranslation : public Tolvane::RecordTranslation<Tolvane::RecordList<Studio::Face>> {
public:
    StudioTranslation() : RecordTranslation("Studio") {}

    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override {
        const char* fault = std::getenv("TOLVANE_TEST_FAULT");
        names.clear();
        names.append("Absent::Face");
        if (fault && fault == std::string_view("names nothing known")) return;
        for (const char* name : {"array<Studio::Face>", "Studio::Face", "Studio::Face"})
            names.append(name);
    }
};

}  // namespace

extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    return new StudioTranslation;
}
