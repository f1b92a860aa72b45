// The records of the tests' one table, as the rows that the model takes.
#include "tests/model/Shape.h"
#include "tests/support/CarriedTypes.h"

namespace Model {
namespace {

using TestSupport::graphName;

template <typename Record>
RecordRow rowOf() {
    RecordRow row{graphName<Record>(), {}};
    TestSupport::eachMemberType<Record>([&](const char*, auto tag) {
        row.members.push_back(graphName<typename decltype(tag)::Type>());
    });
    return row;
}

template <typename... Records>
std::vector<RecordRow> rowsOf(testing::Types<Records...>) {
    return {rowOf<Records>()...};
}

}  // namespace

const std::vector<RecordRow>& recordRows() {
    static const std::vector<RecordRow> rows = rowsOf(TestSupport::RecordTypes());
    return rows;
}

}  // namespace Model
