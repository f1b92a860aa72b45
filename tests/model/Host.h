// What the host promises of the calls that a translation makes of it, on the model's data: what
// each does, what it gives where it fails, and which attributes it marks. Each call is told to the
// log, which says whether it fails.
#pragma once

#include "tests/model/CallLog.h"
#include "tests/model/HostData.h"

#include <string>
#include <tuple>
#include <vector>

namespace Model {

// Null by default, as the handles are.
struct Plug {
    HostAttribute* attribute = nullptr;
    bool isElement = false;
};

struct DataHandle {
    HostAttribute* attribute = nullptr;
    HostNode* node = nullptr;
};

struct ArrayHandle {
    HostAttribute* attribute = nullptr;
    HostArray* elements = nullptr;
    HostArray::iterator current = {};
};

struct ArrayBuilder {
    HostAttribute* attribute = nullptr;
    HostArray elements;
};

class Host {
public:
    Host(std::vector<Port>& ports, CallLog& calls) : m_ports(ports), m_calls(calls) {}

    // Not calls.
    Plug plugAt(const Place& place);
    void setDirty(const Plug& plug);

    DataHandle inputValue(const Place& place);
    DataHandle outputValue(const Place& place);
    void setClean(HostAttribute* attribute);

    Plug child(const Plug& plug, unsigned index);
    Plug elementByLogicalIndex(const Plug& plug, unsigned index);
    HostAttribute* attribute(const Plug& plug);

    DataHandle child(const DataHandle& handle, const Plug& plug);
    Matrix& asMatrix(const DataHandle& handle);
    std::string& asString(const DataHandle& handle);
    Number& asDouble(const DataHandle& handle);
    void setString(const DataHandle& handle, const std::string& text);
    void setDouble(const DataHandle& handle, Number number);

    ArrayHandle arrayHandle(const DataHandle& handle);
    unsigned elementCount(const ArrayHandle& array);
    DataHandle inputValue(const ArrayHandle& array);
    // Null where it fails, as no element's handle is.
    DataHandle outputValue(const ArrayHandle& array);
    bool next(ArrayHandle& array);
    ArrayBuilder builder(const ArrayHandle& array);
    void set(ArrayHandle& array, const ArrayBuilder& builder);
    void setAllClean(const ArrayHandle& array);

    DataHandle addElement(ArrayBuilder& builder, unsigned index);
    bool removeElement(ArrayBuilder& builder, unsigned index);
    unsigned elementCount(const ArrayBuilder& builder);

    void displayError(const std::string& message);
    const std::vector<std::string>& messages() const noexcept { return m_messages; }

    // How many calls were made to fail, up to now. Not a call either.
    std::size_t failedCalls() const noexcept { return m_calls.failed().size(); }

private:
    bool fails(std::string_view operation, long long index = -1, bool statusRequested = false);
    DataHandle find(const Place& place);
    template <typename T>
    T& value(std::string_view operation, const DataHandle& handle);
    template <typename T>
    void setValue(std::string_view operation, const DataHandle& handle, const T& value);

    std::vector<Port>& m_ports;
    CallLog& m_calls;
    std::vector<std::string> m_messages;
    // Handed out in place of data that is not there.
    std::tuple<Matrix, std::string, Number> m_spares;
};

}  // namespace Model
