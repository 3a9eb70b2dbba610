#include "VELTRuntime/platform/object/callback_failure.h"

#include "VELTRuntime/platform/object/exception.h"

#include <atomic>
#include <cstdlib>

namespace velt {

namespace {

thread_local int shelters = 0;
std::atomic<bool> anyRaised{false};

}  // namespace

CallbackShelter::CallbackShelter() noexcept { ++shelters; }
CallbackShelter::~CallbackShelter() { --shelters; }

void callbackRaised() noexcept {
    if (shelters == 0) endWithCurrentException();
    reportCurrentException();
    anyRaised.store(true, std::memory_order_relaxed);
}

int statusAfterCallbacks(int status) noexcept {
    return status == EXIT_SUCCESS && anyRaised.load(std::memory_order_relaxed) ? EXIT_FAILURE : status;
}

}  // namespace velt
