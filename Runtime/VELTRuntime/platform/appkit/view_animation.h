// View animations: windows and views that move, come and go over some time, several of them together.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <memory>
#include <string_view>

namespace velt {

// The keys of what is to be animated, and the ways of coming and going.
inline constexpr std::string_view kAnimationTarget = "NSViewAnimationTargetKey";
inline constexpr std::string_view kAnimationStartFrame = "NSViewAnimationStartFrameKey";
inline constexpr std::string_view kAnimationEndFrame = "NSViewAnimationEndFrameKey";
inline constexpr std::string_view kAnimationEffect = "NSViewAnimationEffectKey";
inline constexpr std::string_view kFadeIn = "NSViewAnimationFadeInEffect";
inline constexpr std::string_view kFadeOut = "NSViewAnimationFadeOutEffect";

/// How the speed changes on the way; the numbers are the codes that programs use.
enum class AnimationCurve : unsigned long { EaseInOut = 0, EaseIn = 1, EaseOut = 2, Linear = 3 };

}  // namespace velt

/// What is animated is an array of dictionaries: a window or a view as the target, its first frame (where it is, unless
/// said) and its last one (where it is), and whether it comes or goes. One that comes is unhidden, a view that has gone
/// is hidden, a window that has gone leaves the screen. The delegate is sent "animationShouldStart:",
/// "animationDidEnd:" when all has arrived, and "animationDidStop:" when it was stopped before that.
class VELT_EXPORT NSViewAnimation : public NSObject {
    VELT_OBJECT(NSViewAnimation, NSObject)
public:
    NSViewAnimation();
    ~NSViewAnimation() override;
    id initWithViewAnimations(const id& animations);

    id viewAnimations() const { return animations_; }
    void setViewAnimations(const id& animations) { animations_ = animations; }
    /// Seconds, from 0 to a million; beyond them the nearest.
    double duration() const { return duration_; }
    void setDuration(double seconds);
    unsigned long animationCurve() const { return static_cast<unsigned long>(curve_); }
    /// Codes that there are not are ignored.
    void setAnimationCurve(unsigned long curve);
    /// 0: startAnimation returns when the animation has ended, and what a person does meanwhile waits; other values: at
    /// once.
    unsigned long animationBlockingMode() const { return blocking_; }
    void setAnimationBlockingMode(unsigned long mode) { blocking_ = mode; }
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }

    bool isAnimating() const { return run_ != nullptr; }
    /// How far it is, from 0 to 1, by the time and by the curve.
    double currentProgress() const;
    double currentValue() const;
    /// Nothing happens while it runs.
    void startAnimation();
    /// Everything stays as far as it has come; what comes or goes is fully seen again or gone.
    void stopAnimation();

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSViewAnimation>& c);

private:
    struct Run;
    void arrive();
    void tell(std::string_view selector);

    id animations_, delegate_;
    double duration_ = 0.5;
    velt::AnimationCurve curve_ = velt::AnimationCurve::EaseInOut;
    unsigned long blocking_ = 0;
    std::shared_ptr<Run> run_;  // what runs now
};
