#include "tests/model/Translation.h"

#include <algorithm>

namespace Model {
namespace {

struct Refusal {
    std::string message;
};

// Objects stand last and stay in the graph.
std::size_t crossingMembers(const Shape& record) {
    const auto isObject = [](const Shape* member) { return member->kind == Kind::Object; };
    const auto end = std::find_if(record.parts.begin(), record.parts.end(), isObject);
    return static_cast<std::size_t>(end - record.parts.begin());
}

bool isSparse(const ArrayHandle& array) {
    return array.elements && !array.elements->empty() &&
           array.elements->rbegin()->first >= array.elements->size();
}

class Reading {
public:
    Reading(Host& host, Walks& walks) : m_host(host), m_walks(walks) {}

    GraphValue read(const Shape& shape, const DataHandle& handle, const Plug& plug) {
        switch (shape.kind) {
            case Kind::Number:
                return {m_host.asDouble(handle)};
            case Kind::Text:
                return {m_host.asString(handle)};
            case Kind::Matrix:
                return {m_host.asMatrix(handle)};
            case Kind::Array:
                return {readArray(*shape.parts[0], handle, plug)};
            case Kind::Object:
            case Kind::Record:
                break;
        }
        return readRecord(shape, handle, plug);
    }

private:
    GraphValue readRecord(const Shape& shape, const DataHandle& handle, const Plug& plug) {
        GraphValue record = defaultValue(shape);
        Record& members = std::get<Record>(record.content);
        for (unsigned i = 0; i < crossingMembers(shape); ++i) {
            const Plug childPlug = m_host.child(plug, i);
            const DataHandle childHandle = m_host.child(handle, childPlug);
            members[i] = read(*shape.parts[i], childHandle, childPlug);
        }
        return record;
    }

    Array readArray(const Shape& element, const DataHandle& handle, const Plug& plug) {
        ArrayHandle source = m_host.arrayHandle(handle);
        const unsigned count = m_host.elementCount(source);
        auto elements = std::make_shared<std::vector<GraphValue>>();
        elements->reserve(count);
        while (elements->size() < count) elements->push_back(defaultValue(element));
        Walk walk{Walk::Read, &element, count, isSparse(source)};
        for (unsigned k = 0; k < count; ++k) {
            const DataHandle elementHandle = m_host.inputValue(source);
            const bool isRecord = element.kind == Kind::Record;
            const Plug elementPlug = isRecord ? m_host.elementByLogicalIndex(plug, k) : Plug();
            (*elements)[k] = read(element, elementHandle, elementPlug);
            const std::size_t failedBefore = m_host.failedCalls();
            const bool goesOn = m_host.next(source);
            if (m_host.failedCalls() > failedBefore) walk.failedAt = k;
            if (!goesOn) break;
        }
        m_walks.push_back(walk);
        return elements;
    }

    Host& m_host;
    Walks& m_walks;
};

class Writing {
public:
    Writing(Host& host, Walks& walks) : m_host(host), m_walks(walks) {}

    void write(const Shape& shape, const GraphValue& value, const DataHandle& handle,
               const Plug& plug) {
        switch (shape.kind) {
            case Kind::Number:
                return m_host.setDouble(handle, std::get<Number>(value.content));
            case Kind::Text:
                return m_host.setString(handle, std::get<std::string>(value.content));
            case Kind::Matrix:
                m_host.asMatrix(handle) = std::get<Matrix>(value.content);
                return;
            case Kind::Array:
                return writeArray(*shape.parts[0], std::get<Array>(value.content), handle, plug);
            case Kind::Object:
            case Kind::Record:
                break;
        }
        writeRecord(shape, std::get<Record>(value.content), handle, plug);
    }

private:
    void writeRecord(const Shape& shape, const Record& members, const DataHandle& handle,
                     const Plug& plug) {
        for (unsigned i = 0; i < crossingMembers(shape); ++i) {
            const Plug childPlug = m_host.child(plug, i);
            const DataHandle childHandle = m_host.child(handle, childPlug);
            write(*shape.parts[i], members[i], childHandle, childPlug);
        }
    }

    void writeArray(const Shape& element, const Array& array, const DataHandle& handle,
                    const Plug& plug) {
        if (!array) return m_walks.push_back({Walk::LeaveAsNull, &element});
        ArrayHandle destination = m_host.arrayHandle(handle);
        if (m_host.elementCount(destination) == array->size())
            writeInPlace(element, *array, destination, plug);
        else
            rebuild(element, *array, destination, plug);
        m_host.setAllClean(destination);
    }

    void writeInPlace(const Shape& element, const std::vector<GraphValue>& values,
                      ArrayHandle& destination, const Plug& plug) {
        m_walks.push_back({Walk::WriteInPlace, &element, values.size(), isSparse(destination)});
        const std::size_t walk = m_walks.size() - 1;
        for (unsigned k = 0; k < values.size(); ++k) {
            const DataHandle handle = m_host.outputValue(destination);
            if (!handle.node) {
                m_walks[walk].failedAt = k;
                throw Refusal{"Cannot get handle on array element !"};
            }
            writeElement(element, values[k], handle, plug, k);
            m_host.next(destination);
        }
    }

    void rebuild(const Shape& element, const std::vector<GraphValue>& values,
                 ArrayHandle& destination, const Plug& plug) {
        if (!destination.elements || values.size() > destination.elements->size())
            m_walks.push_back({Walk::Grow, &element, values.size(), isSparse(destination)});
        ArrayBuilder builder = m_host.builder(destination);
        for (unsigned k = 0; k < values.size(); ++k)
            writeElement(element, values[k], m_host.addElement(builder, k), plug, k);
        const unsigned count = m_host.elementCount(builder);
        const auto length = static_cast<unsigned>(values.size());
        if (length < count)
            m_walks.push_back({Walk::Remove, &element, count - length, isSparse(destination)});
        for (unsigned i = length; i < count; ++i) {
            if (m_host.removeElement(builder, i)) continue;
            m_walks.back().failedAt = i - length;
            throw Refusal{"Cannot remove element from array"};
        }
        m_host.set(destination, builder);
    }

    void writeElement(const Shape& shape, const GraphValue& value, const DataHandle& handle,
                      const Plug& arrayPlug, unsigned k) {
        const bool isRecord = shape.kind == Kind::Record;
        const Plug plug = isRecord ? m_host.elementByLogicalIndex(arrayPlug, k) : Plug();
        write(shape, value, handle, plug);
    }

    Host& m_host;
    Walks& m_walks;
};

}  // namespace

bool translateFromHost(Host& host, const std::string& type, Holder& holder, const Place& place,
                       Walks& walks) {
    const DataHandle handle = host.inputValue(place);
    if (!isCarried(type)) return false;
    holder = HeldValue{type, Reading(host, walks).read(shapeOf(type), handle, host.plugAt(place))};
    return true;
}

bool translateToHost(Host& host, const Holder& holder, const Place& place, Walks& walks) {
    const DataHandle handle = host.outputValue(place);
    if (!holder || !isCarried(holder->type)) return false;
    const Plug plug = host.plugAt(place);
    try {
        Writing(host, walks).write(shapeOf(holder->type), holder->value, handle, plug);
        host.setClean(host.attribute(plug));
    } catch (const Refusal& refusal) {
        host.displayError(refusal.message);
    }
    return true;
}

}  // namespace Model
