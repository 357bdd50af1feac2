#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cimom
{

// An element of an XML document with all that is in it.
struct XmlElement {
    static const XmlElement none; // has no name; stands for an element that is not there

    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlElement> children;
    std::string text; // all that is directly in the element, CDATA sections too

    explicit operator bool() const { return !name.empty(); }
    const XmlElement& child(std::string_view childName) const; // the first of that name, or none
    std::vector<std::reference_wrapper<const XmlElement>> childrenNamed(std::string_view childName) const;
    bool hasAttribute(std::string_view attributeName) const;
    const char* attribute(std::string_view attributeName) const; // "" when absent
};

class XmlError : public std::runtime_error
{
  public:
    using runtime_error::runtime_error;
};

// Reads a document in UTF-8 and returns its outermost element. Throws XmlError for what is not well-formed,
// nests deeper than any CIM-XML does, or brings a document type with declarations.
XmlElement parseXml(std::string_view document);

} // namespace cimom
