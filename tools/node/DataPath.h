// The way from a port's attribute to data below it. It becomes text only for a mismatch, for most
// comparisons find none.
#pragma once

#include "tools/node/Mismatch.h"

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

class DataPath {
public:
    // The port itself.
    explicit DataPath(const std::string& port) : m_above(nullptr), m_name(port) {}
    DataPath(const DataPath& above, const std::string& child) : m_above(&above), m_name(child) {}
    DataPath(const DataPath& array, unsigned logicalIndex)
        : m_above(&array), m_name(array.m_name), m_index(logicalIndex) {}

    // A mismatch here.
    Mismatch mismatch(std::string what) const {
        Mismatch mismatch{{}, {}, {}, std::move(what), {}, {}, {}};
        addTo(mismatch);
        return mismatch;
    }

    // Nothing if it is not an element.
    const std::optional<unsigned>& index() const noexcept { return m_index; }

private:
    void addTo(Mismatch& mismatch) const {
        if (!m_above) {
            mismatch.port = m_name;
            return;
        }
        m_above->addTo(mismatch);
        if (m_index) {
            mismatch.path += "[" + std::to_string(*m_index) + "]";
            mismatch.indices.push_back(*m_index);
        } else {
            mismatch.path += (mismatch.path.empty() ? "" : ".") + m_name;
        }
    }

    const DataPath* m_above;
    const std::string& m_name;
    std::optional<unsigned> m_index;
};

}  // namespace Tolvane::Tools
