// A host node with an input and an output port of one type, which a library's translation has given
// their attributes: the way of a value from the host into a holder and back.
#pragma once

#include "tools/check/Content.h"
#include "tools/check/Trial.h"
#include "tools/node/DataShape.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Type.h>

#include <string>
#include <vector>

namespace Tolvane::Tools {

class Passage {
public:
    static constexpr const char* kInput = "in";
    static constexpr const char* kOutput = "out";

    // Skips the case if the ports get no attributes, which cases of their own tell. What cannot
    // hold the values of its member is left out of the shapes, and the trial notes it.
    Passage(Trial& trial, const Pelmor::Type& type);

    const Pelmor::Type& type() const noexcept { return m_type; }
    VDataBlock& data() noexcept { return m_data; }
    DataPlace input() { return {m_input, m_data.outputValue(m_input.plug)}; }
    DataPlace output() { return {m_output, m_data.outputValue(m_output.plug)}; }
    bool isOutputClean() const { return m_data.isClean(m_output.plug.attribute()); }

    // Gives the input port's attribute this content, and makes it dirty.
    void fillInput(const Content& content);

    // Gives the output port's attribute this content.
    void fillOutput(const Content& content) { fill(output(), content); }

    // Each calls the translation once, as the framework does in an evaluation, and returns what it
    // returns. `write` makes the output's attribute dirty first.
    bool read(Pelmor::AnyValue& value);
    bool write(const Pelmor::AnyValue& value);

    // Both, whatever comes of it.
    void evaluate();

    // The same, for what must succeed: fails the case if it does not, or gives no value.
    // `mustWrite` skips the case if the library only reads values of the type.
    Pelmor::AnyValue mustRead();
    void mustWrite(const Pelmor::AnyValue& value);
    void skipIfOnlyRead() const;

    // All of the way, of one content: what is done is told to the trial.
    Pelmor::AnyValue fillAndRead(const Content& content);
    void carry(const Content& content);
    // Writes a value, which `what` names, and compares the output with the content that it has.
    void writeAndCompare(const Pelmor::AnyValue& value, const Content& content,
                         const std::string& what);

    // Where and how the output's attribute does not hold this content; empty if it does. The
    // logical indices of elements are from 0 on, since a holder does not keep the input's.
    std::string differenceOfOutput(Content content);
    // The same, where the output's elements may have any logical indices.
    std::string differenceOfOutputValues(const Content& content);
    // Fails the case where the output's attribute does not hold this content, or the input's; the
    // logical indices of elements aside, which a holder does not keep.
    void expectOutput(const Content& content);
    void expectInput(const Content& content);

private:
    DataShape addPort(const char* name, TavrikGraph::Executor::PortDirection direction);
    // A third attribute, which no translation is called for, with this content.
    DataPlace reference(const Content& content);

    Trial& m_trial;
    Pelmor::Type m_type;
    VObject m_node;
    VDataBlock m_data;
    DataShape m_input;
    DataShape m_output;
    DataShape m_reference;
};

// The types that have ports, and values that are carried in both directions. Skips the case if
// there are none.
std::vector<Pelmor::Type> passable(Trial& trial);

// Where and how the first difference between the data of two attributes shows; empty if there is
// none.
std::string firstDifference(const DataPlace& expected, const DataPlace& actual);

}  // namespace Tolvane::Tools
