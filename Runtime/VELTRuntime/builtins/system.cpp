// The user, the bundle, the process, the alert sound, settings and notifications.
#include "VELTRuntime/builtins/system.h"

#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process_info.h"
#include "VELTRuntime/platform/foundation/user.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/providers.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/string.h"

#include <cstdio>
#include <unistd.h>

using namespace velt;

namespace {

NSUserDefaults& defaults() { return NSUserDefaults::standardUserDefaults(); }
NSNotificationCenter& center() { return NSNotificationCenter::defaultCenter(); }

}  // namespace

// What takes nothing but the placeholder: its name, and the answer in native form.
#define VELT_ANSWER(name, answer)                                                                                      \
    id name(const id&) { return boxResult(answer); }

VELT_ANSWER(VELT_USER_USERNAME, velt::string(userName()))
VELT_ANSWER(VELT_USER_FULLUSERNAME, velt::string(fullUserName()))
VELT_ANSWER(VELT_USER_HOMEDIRECTORY, velt::string(homeFolder()))
VELT_ANSWER(VELT_USER_DESKTOPDIRECTORY, velt::string(homeFolder() + "/Desktop"))
VELT_ANSWER(VELT_USER_TEMPORARYDIRECTORY, velt::string(temporaryFolder()))
VELT_ANSWER(VELT_NSBUNDLE_BUNDLEPATH, velt::string(NSBundle::mainBundle().bundlePath()))
VELT_ANSWER(VELT_NSBUNDLE_RESOURCEPATH, velt::string(NSBundle::mainBundle().resourcePath()))
VELT_ANSWER(VELT_NSBUNDLE_EXECUTABLEPATH, velt::string(NSBundle::mainBundle().executablePath()))
VELT_ANSWER(VELT_NSPROCESSINFO_ARGUMENTS, NSProcessInfo::processInfo().arguments())
VELT_ANSWER(VELT_NSPROCESSINFO_ENVIRONMENT, NSProcessInfo::processInfo().environment())
VELT_ANSWER(VELT_NSPROCESSINFO_PID, NSProcessInfo::processInfo().processIdentifier())
VELT_ANSWER(VELT_NSUSERDEFAULTS_SYNCHRONIZE, defaults().synchronize())

id VELT_USER_HOMEDIRECTORYFORUSER(const id&, const id& user) {
    const auto home = homeFolderOf(utf8(VELT_CSTRING(user)));
    return home ? velt::string(*home) : id();
}

id VELT_BEEP() {
    const auto sound = providers().soundAlert;
    // Without a desktop the terminal's own bell.
    if (!(sound && sound()) && isatty(STDERR_FILENO)) std::fputc('\a', stderr);
    return nil;
}

id VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(const id&, const id& values) {
    defaults().registerDefaults(dictionaryOf(VELT_CDICTIONARY(values)));
    return nil;
}

id VELT_NSUSERDEFAULTS_GET(const id&, const id& key) { return defaults().objectForKey(VELT_CSTRING(key)); }

id VELT_NSUSERDEFAULTS_SET(const id&, const id& key, const id& value) {
    defaults().setObject(value, VELT_CSTRING(key));
    return nil;
}

id VELT_NSUSERDEFAULTS_REMOVE(const id&, const id& key) {
    defaults().removeObject(VELT_CSTRING(key));
    return nil;
}

id VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(const id& observer, const id& name, const id& object) {
    const id text = VELT_CSTRING(name);
    const Selector handler = Selector::named(utf8(text) + ":");
    if (respondsTo(observer, handler)) center().addObserver(observer, handler, text, object);
    return nil;
}

id VELT_NSNOTIFICATIONCENTER_REMOVEOBSERVER(const id& observer, const id& name, const id& object) {
    center().removeObserver(observer, VELT_CSTRING(name), object);
    return nil;
}

id VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(const id& sender, const id& name, const id& information) {
    const id text = VELT_CSTRING(name);
    center().post(text, sender, VELT_CDICTIONARY(information));
    return nil;
}
