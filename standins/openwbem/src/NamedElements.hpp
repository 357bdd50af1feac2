#ifndef OPENWBEM_SRC_NAMED_ELEMENTS_HPP_
#define OPENWBEM_SRC_NAMED_ELEMENTS_HPP_

#include "OW_Array.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"

// Lists of properties, qualifiers, methods and parameters. Names match without regard to case; the first
// match counts.
namespace OpenWBEM
{

template <class Element>
CIMName nameOf(const Element& element)
{
    return element.getName();
}

// The position of the element; the size of the list when there is none.
template <class Element>
size_t positionOf(const Array<Element>& elements, const CIMName& name)
{
    size_t position = 0;
    while (position < elements.size() && name != nameOf(elements[position])) {
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
    const size_t position = positionOf(elements, nameOf(element));
    if (position < elements.size()) {
        elements[position] = element;
    } else {
        elements.push_back(element);
    }
}

template <class Element>
void addNewElement(Array<Element>& elements, const Element& element)
{
    if (hasElement(elements, nameOf(element))) {
        throw CIMException(__FILE__, __LINE__, CIMException::ALREADY_EXISTS, element.getName().c_str());
    }
    elements.push_back(element);
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
