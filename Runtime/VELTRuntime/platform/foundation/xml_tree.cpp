#include "VELTRuntime/platform/foundation/xml_tree.h"

#include "VELTRuntime/platform/foundation/expat_parser.h"

#include <algorithm>
#include <expat.h>

namespace velt {

XmlError::~XmlError() = default;

const std::string& XmlElement::attribute(std::string_view key) const {
    static const std::string& none = *new std::string;
    const auto found = attributes.find(key);
    return found == attributes.end() ? none : found->second;
}

const XmlElement* XmlElement::child(std::string_view childName) const {
    const auto isNamed = [childName](const XmlElement& element) { return element.name == childName; };
    const auto found = std::find_if(children.begin(), children.end(), isNamed);
    return found == children.end() ? nullptr : &*found;
}

namespace {

class TreeReader {
public:
    TreeReader() {
        XML_Parser parser = parser_.get();
        XML_SetUserData(parser, this);
        XML_SetElementHandler(
            parser,
            [](void* self, const char* name, const char** attributes) {
                guarded(self, [&](TreeReader& reader) { reader.begin(name, attributes); });
            },
            [](void* self, const char*) { guarded(self, [](TreeReader& reader) { reader.open_.pop_back(); }); });
        XML_SetCharacterDataHandler(parser, [](void* self, const char* text, int length) {
            guarded(self, [&](TreeReader& reader) {
                if (!reader.open_.empty()) reader.open_.back()->text.append(text, static_cast<std::size_t>(length));
            });
        });
        XML_SetEntityDeclHandler(parser, [](void* self, const char*, int, const char*, int, const char*, const char*,
                                            const char*, const char*) {
            guarded(self, [](TreeReader& reader) { reader.refuse("entities may not be declared"); });
        });
    }

    XmlElement read(std::string_view bytes) {
        if (const char* failure = parser_.read(bytes)) refuse(failure);
        return std::move(root_);
    }

private:
    /// Does a handler's work from within the parser.
    template <class Work> static void guarded(void* self, Work work) noexcept {
        auto& reader = *static_cast<TreeReader*>(self);
        reader.parser_.guard([&] { work(reader); });
    }

    void begin(const char* name, const char** attributes) {
        if (open_.size() >= kMostXmlLevels) refuse("elements lie too deep within each other");
        // An element's address holds while it is open: those beside it come after its end.
        XmlElement& element = open_.empty() ? root_ : open_.back()->children.emplace_back();
        element.name = name;
        element.line = XML_GetCurrentLineNumber(parser_.get());
        for (; *attributes; attributes += 2) element.attributes[attributes[0]] = attributes[1];
        open_.push_back(&element);
    }

    [[noreturn]] void refuse(const std::string& what) { throw XmlError(parser_.place() + what); }

    ExpatParser parser_;
    XmlElement root_;
    std::vector<XmlElement*> open_;
};

}  // namespace

XmlElement readXmlTree(std::string_view bytes) { return TreeReader().read(bytes); }

}  // namespace velt
