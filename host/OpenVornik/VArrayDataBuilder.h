// Changes which elements an array has. A builder begins with the array's elements and is given
// back with `VArrayDataHandle::set`; dropped without that, it changes nothing.
// [evaluation thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VStatus.h>

#include <memory>

namespace OpenVornik::Internal {
class ArrayData;
}

class OPENVORNIK_API VArrayDataBuilder {
public:
    // A builder of nothing, on which every operation fails.
    VArrayDataBuilder() noexcept;
    VArrayDataBuilder(VArrayDataBuilder&& other) noexcept;
    VArrayDataBuilder& operator=(VArrayDataBuilder&& other) noexcept;
    ~VArrayDataBuilder();

    // The element at `logicalIndex`: the one that is there, else a new one with its attribute's
    // defaults. The handle is valid until the builder is destroyed or given to `set`.
    VDataHandle addElement(unsigned logicalIndex, VStatus* status = nullptr);
    // Fails with kNotFound if there is no element at `logicalIndex`.
    VStatus removeElement(unsigned logicalIndex);
    unsigned elementCount(VStatus* status = nullptr) const;

private:
    friend class VArrayDataHandle;

    VArrayDataBuilder(OpenVornik::Internal::Node* node,
                      const OpenVornik::Internal::Attribute* attribute,
                      std::unique_ptr<OpenVornik::Internal::ArrayData> elements) noexcept;

    OpenVornik::Internal::Node* m_node = nullptr;
    const OpenVornik::Internal::Attribute* m_attribute = nullptr;
    // Keeps the attribute, which says how the elements are laid out, alive when its node is gone.
    VObject m_keptAttribute;
    std::unique_ptr<OpenVornik::Internal::ArrayData> m_elements;
};
