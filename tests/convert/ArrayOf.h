// Makes the graph's shared arrays.
#pragma once

#include <Pelmor/Array.h>
#include <Pelmor/Ptr.h>

#include <initializer_list>

namespace TestSupport {

template <typename Element>
Pelmor::SharedArray<Element> arrayOf(std::initializer_list<Element> elements) {
    auto array = Pelmor::makePtr<Pelmor::Array<Element>>();
    for (const Element& element : elements) array->append(element);
    return array;
}

}  // namespace TestSupport
