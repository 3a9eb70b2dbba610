// A small XML document as a tree of elements.
#pragma once

#include "VELTRuntime/export.h"

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velt {

/// One element; all texts are UTF-8.
struct VELT_EXPORT XmlElement {
    std::string name;
    std::map<std::string, std::string, std::less<>> attributes;
    std::string text;  // its own, without that of the elements in it
    std::vector<XmlElement> children;
    unsigned long line = 0;

    /// The value of an attribute, empty when there is none.
    const std::string& attribute(std::string_view key) const;
    /// The first element in it of that name, or null.
    const XmlElement* child(std::string_view childName) const;
};

/// What was wrong with a document and where: "line 3, column 7: ...".
class VELT_EXPORT XmlError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~XmlError() override;
};

/// Elements that lie deeper within each other are refused, and so are documents that declare entities.
inline constexpr unsigned kMostXmlLevels = 256;

/// The root element of a document. Throws XmlError.
VELT_EXPORT XmlElement readXmlTree(std::string_view bytes);

}  // namespace velt
