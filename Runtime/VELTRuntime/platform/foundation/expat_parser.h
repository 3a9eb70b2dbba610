// What the readers of XML share: the parser, which checks that a document is well-formed and tells its parts one by
// one.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>

struct XML_ParserStruct;

namespace velt {

/// The parser of one document. Its reader sets handlers on get().
class ExpatParser {
public:
    ExpatParser();
    XML_ParserStruct* get() const { return parser_.get(); }

    /// Does a handler's work. What that throws must not pass through the parser: it waits until the parser has
    /// returned, and nothing more is done.
    template <class Work> void guard(Work&& work) noexcept {
        if (failure_) return;
        try {
            work();
        } catch (...) {
            stop(std::current_exception());
        }
    }
    /// Reads a whole document. Null, or why it is not well-formed. Throws what a handler threw.
    const char* read(std::string_view bytes);
    /// Where it is: "line 3, column 7: ".
    std::string place() const;

private:
    void stop(std::exception_ptr failure) noexcept;

    struct Free {
        void operator()(XML_ParserStruct* parser) const;
    };
    std::unique_ptr<XML_ParserStruct, Free> parser_;
    std::exception_ptr failure_;
};

}  // namespace velt
