// Walks the elements of an array, in ascending logical index, and replaces them as a whole. Arrays
// are sparse: an element's logical index is not its position. A new handle stands at the first
// element. [evaluation thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VStatus.h>

class OPENVORNIK_API VArrayDataHandle {
public:
    // If `handle` is no whole array this fails, and so does every operation of the new handle.
    explicit VArrayDataHandle(const VDataHandle& handle, VStatus* status = nullptr);

    unsigned elementCount(VStatus* status = nullptr) const;

    // The current element. `inputValue` first evaluates what the array depends on, `outputValue`
    // does not. Past the last element both fail with a null handle.
    VDataHandle inputValue(VStatus* status = nullptr);
    VDataHandle outputValue(VStatus* status = nullptr);
    // The logical index of the current element. Fails with 0 past the last.
    unsigned elementIndex(VStatus* status = nullptr) const;

    // Fails at the last element, and leaves the handle past it.
    VStatus next();
    // Both fail, and leave the handle where it is, if there is no such element.
    VStatus jumpToElement(unsigned logicalIndex);
    VStatus jumpToArrayElement(unsigned position);

    VArrayDataBuilder builder(VStatus* status = nullptr) const;
    // Replaces the elements by the builder's and moves to the first. Fails, and changes nothing,
    // if the builder was made for another attribute.
    VStatus set(const VArrayDataBuilder& builder);

    // Marks the array's attribute, and all below it, clean.
    VStatus setAllClean();

private:
    VDataHandle current() const noexcept;

    OpenVornik::Internal::Node* m_node = nullptr;
    const OpenVornik::Internal::Attribute* m_attribute = nullptr;
    OpenVornik::Internal::ArrayData* m_elements = nullptr;
    std::size_t m_position = 0;
};
