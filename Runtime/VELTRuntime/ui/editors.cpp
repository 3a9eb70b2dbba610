#include "VELTRuntime/ui/editors.h"

#include "VELTRuntime/editor/view/source_view.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/editors.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

id no() { return VELT_ID(BOOL{0}); }
id zero() { return VELT_ID(0L); }

}  // namespace

id VELT_VLTEXTVIEW_INIT(const id& target, const char* action) {
    Ref<VLTextView> view = ui::newObject<VLTextView>("VELT_VLTEXTVIEW_INIT", target, action);
    view->setDelegate(target);
    return view;
}

id VELT_VLTEXTVIEW_LOAD(const id& view, const id& path) {
    requireMainThread("VELT_VLTEXTVIEW_LOAD");
    const id name = VELT_CSTRING(path);
    if (view.isNil()) return no();
    id loaded = send(view, VELT_SELECTOR("_load:"), name);
    send(view, VELT_SELECTOR("setFilename:"), name);
    VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
    return loaded;
}

id VELT_VLTEXTVIEW_SAVE(const id& view, const id& path) {
    requireMainThread("VELT_VLTEXTVIEW_SAVE");
    const id name = VELT_CSTRING(path);
    if (view.isNil()) return no();
    send(view, VELT_SELECTOR("setFilename:"), name);
    return send(view, VELT_SELECTOR("_save:"), name);
}

id VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(const id& view) {
    requireMainThread("VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING");
    send(view, VELT_SELECTOR("performSyntaxHighlighting::"), view, no());
    return nil;
}

id VELT_VLTEXTVIEW_FINDNEXT(const id& view, const id& text) {
    requireMainThread("VELT_VLTEXTVIEW_FINDNEXT");
    const id sought = VELT_CSTRING(text);
    return view.isNil() ? zero() : send(view, VELT_SELECTOR("_findNext:"), sought);
}

id VELT_VLTEXTVIEW_FINDPREVIOUS(const id& view, const id& text) {
    requireMainThread("VELT_VLTEXTVIEW_FINDPREVIOUS");
    const id sought = VELT_CSTRING(text);
    return view.isNil() ? zero() : send(view, VELT_SELECTOR("_findPrevious:"), sought);
}

id VELT_VLTEXTVIEW_FINDREPLACE(const id& view, const id& replacement) {
    requireMainThread("VELT_VLTEXTVIEW_FINDREPLACE");
    const id with = VELT_CSTRING(replacement);
    return view.isNil() ? no() : send(view, VELT_SELECTOR("_replaceSelection:"), with);
}

id VELT_VLTEXTVIEW_FINDREPLACEFIND(const id& view, const id& text, const id& replacement) {
    requireMainThread("VELT_VLTEXTVIEW_FINDREPLACEFIND");
    const id sought = VELT_CSTRING(text), with = VELT_CSTRING(replacement);
    return view.isNil() ? no() : send(view, VELT_SELECTOR("_replace:andFind:"), sought, with);
}

id VELT_VLTEXTVIEW_FINDREPLACEALL(const id& view, const id& text, const id& replacement) {
    requireMainThread("VELT_VLTEXTVIEW_FINDREPLACEALL");
    const id sought = VELT_CSTRING(text), with = VELT_CSTRING(replacement);
    return view.isNil() ? zero() : send(view, VELT_SELECTOR("_replaceAll:with:"), sought, with);
}

id VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL(const id& view, const id& projectName, const id& projectFile,
                                          const id& showsPanel) {
    requireMainThread("VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL");
    const id name = VELT_CSTRING(projectName), file = VELT_CSTRING(projectFile);
    const id asks = VELT_ID(VELT_CBOOL(showsPanel));
    send(view, VELT_SELECTOR("PrintShowingPrintPanel:::"), name, file, asks);
    return nil;
}
