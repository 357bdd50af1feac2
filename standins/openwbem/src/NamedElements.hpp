#ifndef OPENWBEM_SRC_NAMED_ELEMENTS_HPP_
#define OPENWBEM_SRC_NAMED_ELEMENTS_HPP_

#include "OW_Array.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"

// Lists of properties, qualifiers, methods and parameters. Names match without regard to case; the first
// match counts.
namespace OpenWBEM
{

// The position of the element; the size of the list when there is none.
template <class Element>
size_t positionOf(const Array<Element>& elements, const CIMName& name)
{
    size_t position = 0;
    while (position < elements.size() && name != elements[position].getName()) {
        ++position;
    }
    return position;
}

template <class Element>
bool hasElement(const Array<Element>& elements, const CIMName& name)
{
    return positionOf(elements, name) < elements.size();
}

// Null when there is none.
template <class Element>
Element findElement(const Array<Element>& elements, const CIMName& name)
{
    const size_t position = positionOf(elements, name);
    return position < elements.size() ? elements[position] : Element(CIMNULL);
}

// In the place of the one with the same name, or at the end.
template <class Element>
void replaceOrAppend(Array<Element>& elements, const Element& element)
{
    const size_t position = positionOf(elements, element.getName());
    if (position < elements.size()) {
        elements[position] = element;
    } else {
        elements.push_back(element);
    }
}

template <class Element>
bool removeElement(Array<Element>& elements, const CIMName& name)
{
    const size_t position = positionOf(elements, name);
    if (position == elements.size()) {
        return false;
    }
    elements.remove(position);
    return true;
}

} // namespace OpenWBEM

#endif
