// NSKeyedUnarchiver: reads the objects of a keyed archive (see keyed_archiver.h for the format) from a binary or XML
// property list.
#pragma once

#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"

#include <memory>
#include <string>
#include <string_view>

namespace velt {
class ArchiveReader;
}

/// Objects are made when they are asked for, each once. An object that says `initWithCoder:` may be referred to before
/// that returns.
class VELT_EXPORT NSKeyedUnarchiver final : public NSCoder {
    VELT_OBJECT(NSKeyedUnarchiver, NSCoder)
public:
    /// The root object of an archive; nil when it is nil, and when the archive is damaged or holds objects of classes
    /// that are not known or cannot be read, with the reason in `failure` if given. What a program's own
    /// `initWithCoder:` raises is passed on.
    static id unarchive(std::string_view archive, std::string* failure = nullptr);
    /// The same from a file.
    static id unarchiveFile(const std::string& path, std::string* failure = nullptr);

    /// Reads an archive piece by piece, from what was written at its top; raises
    /// "NSInvalidUnarchiveOperationException" when it is none.
    explicit NSKeyedUnarchiver(std::string_view archive);
    ~NSKeyedUnarchiver() override;
    bool allowsKeyedCoding() const override { return true; }
    bool containsValue(const id& key) const override;
    id decodeObject(const id& key) override;
    /// The object under "root" at the top, or the only one there.
    id decodeRoot();

    static void describe(velt::ClassBuilder<NSKeyedUnarchiver>& c);

private:
    std::unique_ptr<velt::ArchiveReader> reader_;
};
