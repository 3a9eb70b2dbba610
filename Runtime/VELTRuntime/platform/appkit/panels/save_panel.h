// Save and open panels: a person names a file to be written, or chooses files and folders that are there.
//
// The desktop's own dialog is shown where there is one that can do what is asked, else the toolkit's.
#pragma once

#include "VELTRuntime/platform/appkit/panel.h"

#include <string>
#include <vector>

namespace velt {
class FileDialog;
struct FileQuestion;

/// The codes of both panels.
inline constexpr long kPanelConfirmed = 1, kPanelCancelled = 0;
}  // namespace velt

class VELT_EXPORT NSSavePanel : public NSPanel {
    VELT_OBJECT(NSSavePanel, NSPanel)
public:
    NSSavePanel();
    ~NSSavePanel() override;
    /// The one save panel of the program.
    static NSSavePanel& savePanel();

    /// Title of the dialog, "Save" unless the program sets one.
    void setPanelTitle(const id& title);
    /// What stands on the button that confirms; nil for the desktop's word.
    id prompt() const { return prompt_; }
    void setPrompt(const id& text) { prompt_ = text; }
    /// What stands before the field for the name; nil for the desktop's words.
    id nameFieldLabel() const { return nameFieldLabel_; }
    void setNameFieldLabel(const id& text) { nameFieldLabel_ = text; }
    /// The folder that is shown, a path; the one of the last run until the program sets one.
    id directory() const { return directory_; }
    void setDirectory(const id& path) { directory_ = path; }
    /// Array of name endings that can be chosen (nil: all). A name without one of them is given the first when saved.
    id allowedFileTypes() const { return types_; }
    void setAllowedFileTypes(const id& types) { types_ = types; }
    id requiredFileType() const;
    void setRequiredFileType(const id& type);
    bool canCreateDirectories() const { return canCreateDirectories_; }
    void setCanCreateDirectories(bool flag) { canCreateDirectories_ = flag; }
    bool showsHiddenFiles() const { return showsHiddenFiles_; }
    void setShowsHiddenFiles(bool flag) { showsHiddenFiles_ = flag; }

    // What was chosen last: the first path, all of them (new arrays), and the same as addresses. nil and empty after a
    // panel that was cancelled.
    id filename() const;
    id filenames() const;
    id url() const;
    id urls() const;

    /// Shows the panel and waits; 1 when it was confirmed, 0 when it was cancelled.
    long runModal();
    long runModalForDirectory(const id& directory, const id& file);
    /// The same as a window's sheet, without waiting; the delegate is sent the message with the panel, the code and the
    /// context.
    void beginSheet(const id& directory, const id& file, NSWindow* window, const id& delegate, const id& didEnd,
                    const id& context);
    /// The dialog is seen, or the panel's own window.
    bool isShown() const;
    /// Cancels a panel that is shown.
    void closePanel();
    /// Confirms or cancels a panel that is shown.
    void ok(const id& sender);
    void cancel(const id& sender);

    bool endsProgramWhenLast() const override { return false; }
    static void describe(velt::ClassBuilder<NSSavePanel>& c);

protected:
    /// What the panel lets a person choose.
    virtual void ask(velt::FileQuestion& question) const;
    long run(const id& directory, const id& file);

private:
    velt::FileQuestion question(const id& directory, const id& file);
    void take(velt::FileDialog& dialog, long code);

    id prompt_, nameFieldLabel_, directory_, types_;
    bool canCreateDirectories_ = true, showsHiddenFiles_ = false;
    std::vector<std::string> chosen_;
    velt::FileDialog* dialog_ = nullptr;
};

class VELT_EXPORT NSOpenPanel final : public NSSavePanel {
    VELT_OBJECT(NSOpenPanel, NSSavePanel)
public:
    NSOpenPanel();
    /// The one open panel of the program.
    static NSOpenPanel& openPanel();

    bool canChooseFiles() const { return files_; }
    void setCanChooseFiles(bool flag) { files_ = flag; }
    bool canChooseDirectories() const { return directories_; }
    void setCanChooseDirectories(bool flag) { directories_ = flag; }
    /// A link that was chosen stands for what it leads to.
    bool resolvesAliases() const { return resolvesAliases_; }
    void setResolvesAliases(bool flag) { resolvesAliases_ = flag; }
    bool allowsMultipleSelection() const { return multiple_; }
    void setAllowsMultipleSelection(bool flag) { multiple_ = flag; }

    /// Shows the panel with a folder (nil: the last one), a name (nil: none) and the endings that can be chosen.
    long runModalForDirectory(const id& directory, const id& file, const id& types);
    long runModalForTypes(const id& types) { return runModalForDirectory(nil, nil, types); }
    static void describe(velt::ClassBuilder<NSOpenPanel>& c);

protected:
    void ask(velt::FileQuestion& question) const override;

private:
    bool files_ = true, directories_ = false, resolvesAliases_ = true, multiple_ = false;
};
