// The objects of a keyed archive by number, made from its property list as they are asked for.
//
// The library's own objects are made without recursion: what waits for its parts lies on a list of frames. A program's
// objects ask for their parts themselves, in `initWithCoder:`; how deep they may lie within each other depends on the
// room on the stack.
#pragma once

#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/keyed_archive/content_coding.h"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

class NSArray;

namespace velt {

/// Reads one archive. Throws ArchiveDamage for whatever is wrong with it.
class ArchiveReader {
public:
    /// `archiveSize` is the number of bytes that the property list was read from: it bounds what is made of it.
    ArchiveReader(const id& propertyList, std::size_t archiveSize);

    /// What was written under a key by the object that is being read, or at the top: nil, or the value as the property
    /// list holds it.
    id valueUnder(const id& key) const { return content_->objectForKey(key); }
    /// The object that such a value stands for. `coder` is what a program's objects are given to read from.
    id object(const id& value, const id& coder);
    /// The value of the outermost object.
    id rootValue() const;

    // For the codings of the library's own classes, while they add parts or finish.
    /// What is written under a key of the object: adds the object that it stands for, nil when there is none.
    void addPart(const id& key);
    /// Adds one part by the value of the property list that stands for it.
    void addPartValue(const id& value) { parts_.push_back(value.word()); }
    /// The array under a key, which must be one; null when there is nothing.
    const NSArray* listUnder(const id& key) const;
    /// Counts bytes that are copied or made beyond those of the archive. Throws when a small archive asks for too many.
    void charge(std::size_t bytes);

private:
    enum class State : std::uint8_t { Untouched, UnderWay, Done };
    struct ClassReading {
        const ContentCoding* coding = nullptr;
        const Class* cls = nullptr;  // a class that reads itself
    };
    struct Place {
        id object;
        State state = State::Untouched;
        char typeCode = 0;         // of a number, when its plain form does not tell
        std::uint32_t weight = 0;  // objects within it that a comparison may look at; kHeavy when it has no end
    };
    struct Frame {
        std::uint32_t place;
        const ContentCoding* coding;
        const NSDictionary* content;
        std::size_t firstPart, partEnd, nextPart, firstValue;
        std::uint32_t weight;
    };
    struct Part {
        id object;
        std::uint32_t weight;
    };

    std::optional<std::uint32_t> placeOf(const id& value) const;
    const NSDictionary& requireDictionary(const id& value, const char* what) const;
    void readNumberTypes(const NSDictionary& root);
    id make(std::uint32_t place, const id& coder);
    std::optional<Part> part(const id& value, const id& coder);
    bool begin(std::uint32_t place, const id& coder);
    void beginDictionary(std::uint32_t place, const NSDictionary& content, const id& coder);
    void makeOwn(std::uint32_t place, const Class& cls, const NSDictionary& content, const id& coder);
    void step(const id& coder, std::size_t outermost);
    void addValue(id value, std::uint32_t weight);
    void finish(std::size_t outermost);
    id plainObject(const id& value, char typeCode);
    ClassReading classReading(const NSDictionary& content);
    ClassReading resolveClass(const NSDictionary& description) const;
    void requireStack();

    id list_;
    const NSDictionary* top_;
    const NSArray* objects_;
    const NSDictionary* content_;
    std::vector<Place> places_;
    std::vector<Frame> frames_;
    std::vector<Word> parts_;  // of all frames, as the property list holds them: it stays as it is
    std::vector<id> values_;   // the objects made of them
    std::unordered_map<std::uint32_t, ClassReading> classes_;
    std::size_t allowance_;
    unsigned nesting_ = 0;         // of the program's objects that are being read
    std::uintptr_t stackEnd_ = 0;  // known from a certain nesting on
};

}  // namespace velt
