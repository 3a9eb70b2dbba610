// Generated inputs: how many, and from which seed.
#pragma once

#include <gtest/gtest.h>
#include <random>

namespace velt::test {

#if defined(__has_feature)
#define VELT_TEST_HAS_FEATURE(feature) __has_feature(feature)
#else
#define VELT_TEST_HAS_FEATURE(feature) 0
#endif

/// The thread sanitizer keeps no stack of more than 65535 frames.
#if defined(__SANITIZE_THREAD__) || VELT_TEST_HAS_FEATURE(thread_sanitizer)
inline constexpr bool kKeepsDeepStacks = false;
#else
inline constexpr bool kKeepsDeepStacks = true;
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || VELT_TEST_HAS_FEATURE(address_sanitizer) ||       \
    VELT_TEST_HAS_FEATURE(thread_sanitizer)
inline constexpr int kSlowdown = 20;
#else
inline constexpr int kSlowdown = 1;
#endif

/// Fewer under a sanitizer.
constexpr int iterations(int count) { return count / kSlowdown; }

/// Random numbers from a seed that a failing test shows.
class Generated : public ::testing::Test {
protected:
    Generated() : trace_(__FILE__, __LINE__, "seed " + std::to_string(seed_)) {}
    /// A number from 0 to below the limit.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }
    std::uint64_t bits() { return random_(); }

private:
    unsigned seed_ = std::random_device()();
    std::mt19937_64 random_{seed_};
    ::testing::ScopedTrace trace_;
};

}  // namespace velt::test
