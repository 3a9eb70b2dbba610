#include "VELTRuntime/platform/foundation/xml_tree.h"

#include <algorithm>
#include <exception>
#include <expat.h>
#include <memory>
#include <new>
#include <type_traits>

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
    TreeReader() : parser_(XML_ParserCreate(nullptr)) {
        if (!parser_) throw std::bad_alloc();
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
        constexpr std::size_t kPiece = std::size_t{1} << 20;  // lengths are of type int there
        bool isLast = false;
        while (!isLast) {
            const std::string_view piece = bytes.substr(0, kPiece);
            bytes.remove_prefix(piece.size());
            isLast = bytes.empty();
            const auto status = XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), isLast);
            if (failure_) std::rethrow_exception(failure_);
            if (status != XML_STATUS_OK) refuse(XML_ErrorString(XML_GetErrorCode(parser_.get())));
        }
        return std::move(root_);
    }

private:
    /// Exceptions do not cross the parser: they stop it and wait outside.
    template <class Work> static void guarded(void* self, Work work) noexcept {
        auto& reader = *static_cast<TreeReader*>(self);
        if (reader.failure_) return;
        try {
            work(reader);
        } catch (...) {
            reader.failure_ = std::current_exception();
            XML_StopParser(reader.parser_.get(), XML_FALSE);
        }
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

    [[noreturn]] void refuse(const std::string& what) {
        throw XmlError("line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ", column " +
                       std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1) + ": " + what);
    }

    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_;
    XmlElement root_;
    std::vector<XmlElement*> open_;
    std::exception_ptr failure_;
};

}  // namespace

XmlElement readXmlTree(std::string_view bytes) { return TreeReader().read(bytes); }

}  // namespace velt
