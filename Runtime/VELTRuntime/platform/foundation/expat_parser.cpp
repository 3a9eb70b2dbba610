#include "VELTRuntime/platform/foundation/expat_parser.h"

#include <algorithm>
#include <expat.h>
#include <new>
#include <utility>

namespace velt {

ExpatParser::ExpatParser() : parser_(XML_ParserCreate(nullptr)) {
    if (!parser_) throw std::bad_alloc();
}

void ExpatParser::Free::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

void ExpatParser::stop(std::exception_ptr failure) noexcept {
    failure_ = std::move(failure);
    XML_StopParser(parser_.get(), XML_FALSE);
}

const char* ExpatParser::read(std::string_view bytes) {
    constexpr std::size_t kPiece = std::size_t{1} << 16;  // expat counts bytes as int
    for (;;) {
        const std::size_t size = std::min(bytes.size(), kPiece);
        const bool isLast = size == bytes.size();
        const XML_Status status = XML_Parse(parser_.get(), bytes.data(), static_cast<int>(size), isLast);
        if (failure_) std::rethrow_exception(failure_);
        if (status != XML_STATUS_OK) return XML_ErrorString(XML_GetErrorCode(parser_.get()));
        if (isLast) return nullptr;
        bytes.remove_prefix(size);
    }
}

std::string ExpatParser::place() const {
    return "line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ", column " +
           std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1) + ": ";
}

}  // namespace velt
