// The user, the program's folders, its process, its settings, notifications, files and the alert sound.
//
// Functions that are named after a class and act on its one object ignore their first argument, as all but those of
// file managers do. Texts (paths, keys, names) go through VELT_CSTRING, which raises "VLException" for nil. Tests and
// outcomes are Booleans; a failed operation on files says no more than False, a list that cannot be had is nil.
#pragma once

#include "VELTRuntime/values/value.h"

/// The login name, the full name.
VELT_EXPORT id VELT_USER_USERNAME(const id& ignored);
VELT_EXPORT id VELT_USER_FULLUSERNAME(const id& ignored);
/// The home folder; and the same with "/Desktop" behind it, whether or not there is such a folder.
VELT_EXPORT id VELT_USER_HOMEDIRECTORY(const id& ignored);
VELT_EXPORT id VELT_USER_DESKTOPDIRECTORY(const id& ignored);
/// The folder for temporary files, with a slash at its end.
VELT_EXPORT id VELT_USER_TEMPORARYDIRECTORY(const id& ignored);
/// A user's home folder; nil when there is no such user.
VELT_EXPORT id VELT_USER_HOMEDIRECTORYFORUSER(const id& ignored, const id& user);

/// The program's bundle, the folder with its resources, its executable: absolute paths.
VELT_EXPORT id VELT_NSBUNDLE_BUNDLEPATH(const id& ignored);
VELT_EXPORT id VELT_NSBUNDLE_RESOURCEPATH(const id& ignored);
VELT_EXPORT id VELT_NSBUNDLE_EXECUTABLEPATH(const id& ignored);

/// New array of the command line's arguments, the program first.
VELT_EXPORT id VELT_NSPROCESSINFO_ARGUMENTS(const id& ignored);
/// New dictionary of the environment variables.
VELT_EXPORT id VELT_NSPROCESSINFO_ENVIRONMENT(const id& ignored);
/// The process's number, an Integer.
VELT_EXPORT id VELT_NSPROCESSINFO_PID(const id& ignored);

/// Sounds the alert; returns nil.
VELT_EXPORT id VELT_BEEP();

/// Registers a dictionary (through VELT_CDICTIONARY) of values for settings that are not stored. Returns nil.
VELT_EXPORT id VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(const id& ignored, const id& defaults);
/// The stored value for a key, else the registered one, else nil.
VELT_EXPORT id VELT_NSUSERDEFAULTS_GET(const id& ignored, const id& key);
/// Stores a value under a key; nil removes. Raises "NSInvalidArgumentException" for what a property list cannot hold.
/// Returns nil.
VELT_EXPORT id VELT_NSUSERDEFAULTS_SET(const id& ignored, const id& key, const id& value);
/// Removes the stored value. Returns nil.
VELT_EXPORT id VELT_NSUSERDEFAULTS_REMOVE(const id& ignored, const id& key);
/// Writes to the disk what was changed. Boolean.
VELT_EXPORT id VELT_NSUSERDEFAULTS_SYNCHRONIZE(const id& ignored);

/// Has the observer's method "name:" called with every notification of that name that comes from an object, or from any
/// for nil. An observer without such a method gets nothing, and no error is raised. Returns nil.
VELT_EXPORT id VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(const id& observer, const id& name, const id& object);
/// Removes what was added for the observer, name and object; nil as object stands for every one. Returns nil.
VELT_EXPORT id VELT_NSNOTIFICATIONCENTER_REMOVEOBSERVER(const id& observer, const id& name, const id& object);
/// Tells the observers, on this thread and before it returns. The information that comes with it goes through
/// VELT_CDICTIONARY. Returns nil.
VELT_EXPORT id VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(const id& sender, const id& name, const id& information);

/// Copies a file or a folder tree, moves or renames. False when there is something at the destination.
VELT_EXPORT id VELT_FILE_COPY(const id& ignored, const id& source, const id& destination);
VELT_EXPORT id VELT_FILE_MOVE(const id& ignored, const id& source, const id& destination);
/// Deletes a file, or a folder with all that it holds.
VELT_EXPORT id VELT_FILE_REMOVEFILE(const id& ignored, const id& path);
/// Creates an empty file, in the place of one that is there.
VELT_EXPORT id VELT_FILE_CREATEFILE(const id& ignored, const id& path);
/// Creates one folder; its parent has to be there.
VELT_EXPORT id VELT_FILE_CREATEDIR(const id& ignored, const id& path);
/// New array of the names in a folder, sorted; nil when it cannot be read.
VELT_EXPORT id VELT_FILE_LIST(const id& ignored, const id& path);

// File managers. The receiver is not ignored: nil gives the zero of the result's kind, another object raises
// "NSInvalidArgumentException" naming class and message.

/// The default file manager. With an owner that has a method of the action's name it is sent "setAction:", which it
/// does not understand: raises "NSInvalidArgumentException". Programs rely on it.
VELT_EXPORT id VELT_NSFILEMANAGER_INIT(const id& owner, const char* action);
/// The working folder; and changing it, which returns nil.
VELT_EXPORT id VELT_NSFILEMANAGER_PATH(const id& manager);
VELT_EXPORT id VELT_NSFILEMANAGER_PATH(const id& manager, const id& path);
/// New array of the names in a folder, sorted; nil when it cannot be read.
VELT_EXPORT id VELT_NSFILEMANAGER_LIST(const id& manager, const id& path);
/// Deletes a file, or a folder with all that it holds.
VELT_EXPORT id VELT_NSFILEMANAGER_DELETE(const id& manager, const id& path);
/// Creates an empty file, or one that holds the bytes of data (nil: none; strings go through VELT_CDATA), in the place
/// of one that is there.
VELT_EXPORT id VELT_NSFILEMANAGER_CREATEFILE(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_CREATE(const id& manager, const id& path, const id& data);
/// Creates one folder; its parent has to be there.
VELT_EXPORT id VELT_NSFILEMANAGER_CREATEDIRECTORY(const id& manager, const id& path);
/// Something is at the path; something that is no folder; a folder. Links are followed.
VELT_EXPORT id VELT_NSFILEMANAGER_EXISTS(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_EXISTSFILE(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_EXISTSDIRECTORY(const id& manager, const id& path);
/// This user may read, write, execute, delete what is at the path.
VELT_EXPORT id VELT_NSFILEMANAGER_ISREADABLE(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_ISWRITABLE(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_ISEXECUTABLE(const id& manager, const id& path);
VELT_EXPORT id VELT_NSFILEMANAGER_ISDELETABLE(const id& manager, const id& path);
/// Moves, copies, makes a hard link. False when there is something at the destination.
VELT_EXPORT id VELT_NSFILEMANAGER_MOVE(const id& manager, const id& source, const id& destination);
VELT_EXPORT id VELT_NSFILEMANAGER_COPY(const id& manager, const id& source, const id& destination);
VELT_EXPORT id VELT_NSFILEMANAGER_LINK(const id& manager, const id& source, const id& destination);
