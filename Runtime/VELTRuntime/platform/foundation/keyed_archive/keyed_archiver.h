// NSKeyedArchiver: writes an object and all that it refers to, each once, as a binary property list.
//
// The property list's root has four keys: $archiver and $version, $top with the numbers of the outermost objects by
// key, and $objects with every object, reached by number. Object 0 is nil. Strings, numbers and data that do not change
// stand there as they are, each value once, other objects as dictionaries of what they wrote by key, with the number of
// their class under $class. A fifth key, VELT.numberTypes, lists the numbers whose type code their plain form does not
// tell.
#pragma once

#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"
#include "VELTRuntime/platform/foundation/keyed_archive/place_table.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velt {
struct ContentCoding;
}

/// Objects are noted when they are given and asked for their content (`encodeWithCoder:`) in the order of their
/// numbers, so that no graph is too deep.
class VELT_EXPORT NSKeyedArchiver final : public NSCoder {
    VELT_OBJECT(NSKeyedArchiver, NSCoder)
public:
    /// The archive of one object under the key "root". Raises "NSInvalidArgumentException" naming the class of an
    /// object that cannot be coded.
    static std::string archive(const id& root);
    /// The same as a data value.
    static id archivedData(const id& root);
    /// The same written to a file, atomically; raises as above and returns False when the file cannot be written.
    static bool archiveToFile(const id& root, const std::string& path);

    NSKeyedArchiver();
    bool allowsKeyedCoding() const override { return true; }
    void encodeObject(const id& object, const id& key) override;
    void encodeConditionalObject(const id& object, const id& key) override;
    void encodePlain(const id& value, const id& key) override;
    /// The bytes of all that was written; nothing can be added any more.
    std::string finish();
    /// The same as a data value.
    id encodedData();

    // For the codings of the library's own classes, which write under keys of their own.
    /// A reference to an object, as a property list holds it.
    id reference(const id& object);
    /// References to several objects.
    id references(std::span<const id> objects);
    void setContent(const id& value, const id& key);

    static void describe(velt::ClassBuilder<NSKeyedArchiver>& c);

private:
    struct Conditional {
        id container, key, object;
    };

    std::uint32_t placeOf(const id& object);
    /// 0 for what has not been met.
    std::uint32_t knownPlaceOf(const id& object);
    /// Searches the table for an object's sort; `in` is given the table, the object's hash there and a comparison.
    template <class Search> std::uint32_t search(const id& object, Search&& in);
    void addNumber(const id& number);
    std::uint32_t placeOfClass(const velt::Class& cls);
    std::uint32_t addPlace(const id& source, const id& entry);
    id uid(std::uint32_t place);
    void encodeWaiting();
    void encodeContent(std::uint32_t place);
    void requireOpen() const;

    id top_;
    id content_;               // the dictionary of the object that writes at the moment
    std::vector<id> sources_;  // the object of each place, kept so that its address stays its own
    std::vector<id> entries_;  // what stands for it in the archive
    std::vector<id> uids_;
    std::vector<bool> waiting_;  // its content has not been written
    std::size_t next_ = 0;       // places before it have been written
    bool encoding_ = false;
    bool finished_ = false;
    velt::PlaceTable objects_, numbers_, texts_, data_;
    std::unordered_map<const velt::Class*, std::uint32_t> classes_;
    std::vector<Conditional> conditionals_;
    id numberTypes_;  // places by type code
};
