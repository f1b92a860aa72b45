#include "tools/inspect/FindData.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <charconv>

namespace Tolvane::Tools {
namespace {

class Way {
public:
    Way(const DataPlace& port, const std::string& path)
        : m_path(path), m_shape(&port.shape), m_handle(port.handle) {}

    FoundData find() {
        while (m_at < m_path.size()) {
            if (m_path[m_at] == '[')
                takeElement();
            else
                takeChild();
        }
        return {{*m_shape, m_handle}, m_isElement};
    }

private:
    [[noreturn]] void fail(const std::string& why) const {
        throw Error(Stage::Usage, "", "path " + inQuotes(oneLine(m_path)) + ": " + why);
    }

    void takeElement() {
        const std::size_t end = m_path.find(']', m_at);
        unsigned index = 0;
        const char* first = m_path.data() + m_at + 1;
        const char* last = m_path.data() + (end == std::string::npos ? m_path.size() : end);
        const auto [stop, error] = std::from_chars(first, last, index);
        if (end == std::string::npos || stop != last || error != std::errc() || first == last)
            fail("a number in brackets is wanted at " + inQuotes(m_path.substr(m_at)));
        if (!m_shape->isArray || m_isElement) fail(soFar() + " is no array");
        VArrayDataHandle array(m_handle);
        if (!array.jumpToElement(index))
            fail(soFar() + " has " + std::to_string(array.elementCount()) +
                 " elements, and none at " + std::to_string(index));
        m_handle = array.outputValue();
        m_isElement = true;
        m_at = end + 1;
    }

    void takeChild() {
        std::size_t begin = m_at;
        if (m_path[begin] == '.' && begin > 0) ++begin;
        const std::size_t end = std::min(m_path.find_first_of(".[", begin), m_path.size());
        const std::string name = m_path.substr(begin, end - begin);
        if (m_shape->isArray && !m_isElement) fail(soFar() + " is an array; name an element: [0]");
        const auto& children = m_shape->children;
        const auto child = std::find_if(children.begin(), children.end(),
                                        [&](const DataShape& each) { return each.name == name; });
        if (child == children.end())
            fail(soFar() + " has no child " + inQuotes(oneLine(name)) + childrenInWords());
        m_handle = m_handle.child(child->plug);
        m_shape = &*child;
        m_isElement = false;
        m_at = end;
    }

    std::string soFar() const { return m_at == 0 ? "the port" : m_path.substr(0, m_at); }

    std::string childrenInWords() const {
        std::string text;
        for (const DataShape& child : m_shape->children)
            text += (text.empty() ? ": it has " : ", ") + oneLine(child.name);
        return text;
    }

    const std::string& m_path;
    std::size_t m_at = 0;
    const DataShape* m_shape;
    VDataHandle m_handle;
    bool m_isElement = false;
};

}  // namespace

FoundData findData(const DataPlace& port, const std::string& path) {
    return Way(port, path).find();
}

}  // namespace Tolvane::Tools
