#include "VELTRuntime/values/load_state.h"

#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/file_manager.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process_info.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/values/boxing.h"

id VELT_id_NSPROCESSINFO(&NSProcessInfo::processInfo());
id VELT_id_NSUSERDEFAULTS(&NSUserDefaults::standardUserDefaults());
id VELT_id_NSNOTIFICATIONCENTER(&NSNotificationCenter::defaultCenter());
id VELT_id_NSBUNDLE(&NSBundle::mainBundle());
id VELT_id_FILE(&NSFileManager::defaultManager());

constinit id VELT_idOPENPANEL_CANCHOOSEFILES = id::adopt(velt::booleanWord(true));
constinit id VELT_idOPENPANEL_CANCHOOSEDIRECTORIES = id::adopt(velt::booleanWord(false));
constinit id VELT_idOPENPANEL_RESOLVESALIASES = id::adopt(velt::booleanWord(false));
constinit id VELT_idOPENPANEL_ALLOWSMULTIPLESELECTION = id::adopt(velt::booleanWord(false));
constinit id VELT_idOPENPANEL_DIRECTORY;
constinit id VELT_idOPENPANEL_FILE;
constinit id VELT_idOPENPANEL_TYPES;
constinit id VELT_idOPENPANEL_FILENAMES;
constinit id VELT_idOPENPANEL_URLS;

constinit id VELT_idAPPLICATION;
constinit id VELT_idFIRSTRESPONDER;
constinit id VELT_mSuppressSpotlightForHelp;

constinit long VELT_lStartValue = 0;
constinit double VELT_dLastRND = 0.0;
