// The product's readers and writers, by what a holder holds, so that a test can be written once for
// all of them.
#pragma once

#include "plugin/Records.h"
#include "tests/support/CarriedTypes.h"

#include <Tolvane/convert/PlainArrays.h>
#include <Tolvane/convert/Write.h>

namespace TestSupport {

using Tolvane::readDoubleArray;
using Tolvane::readMatrixArray;
using Tolvane::readStringArray;
using Tolvane::Translators;
using Tolvane::writeDoubleArray;
using Tolvane::writeFromAny;
using Tolvane::writeMatrixArray;
using Tolvane::writeStringArray;

template <typename Record>
struct HeldTranslators {
    static constexpr bool isArray = false;
    using Element = Record;
    // Holds the same records in the other way.
    using Other = Pelmor::SharedArray<Record>;
    static constexpr auto read = Translators<Record>::readValue;
    static constexpr auto write = writeFromAny<Record, Translators<Record>::write>;
};

template <typename Record>
struct HeldTranslators<Pelmor::SharedArray<Record>> {
    static constexpr bool isArray = true;
    using Element = Record;
    using Other = Record;
    static constexpr auto read = Translators<Record>::readArrayValue;
    static constexpr auto write =
        writeFromAny<Pelmor::SharedArray<Record>, Translators<Record>::writeArray>;
};

}  // namespace TestSupport
