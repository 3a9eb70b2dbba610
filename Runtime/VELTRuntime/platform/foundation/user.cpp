#include "VELTRuntime/platform/foundation/user.h"

#include "VELTRuntime/platform/foundation/path_text.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace velt {

namespace {

/// What the user table says of one user.
struct Account {
    std::string name, fullName, home;
};

/// The remarks of the table are separated by commas, the full name first; "&" in it stands for the login name.
std::string fullNameOf(const std::string& remarks, const std::string& login) {
    std::string result;
    for (const char c : remarks.substr(0, remarks.find(','))) {
        if (c != '&') {
            result += c;
        } else if (!login.empty()) {
            result += static_cast<char>(std::toupper(static_cast<unsigned char>(login.front())));
            result += login.substr(1);
        }
    }
    return result;
}

template <class LookUp> std::optional<Account> account(LookUp lookUp) {
    std::vector<char> texts(1024);
    passwd row{};
    passwd* found = nullptr;
    int status = 0;
    while ((status = lookUp(&row, texts.data(), texts.size(), &found)) == ERANGE) texts.resize(texts.size() * 2);
    if (status != 0 || !found) return std::nullopt;
    const std::string login = row.pw_name ? row.pw_name : "";
    return Account{login, fullNameOf(row.pw_gecos ? row.pw_gecos : "", login), row.pw_dir ? row.pw_dir : ""};
}

std::optional<Account> ownAccount() {
    return account([](passwd* row, char* texts, std::size_t size, passwd** found) {
        return getpwuid_r(geteuid(), row, texts, size, found);
    });
}

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// A variable that holds an absolute path, without slashes at its end.
std::string folderVariable(const char* name) {
    const std::string folder = variable(name);
    return folder.starts_with('/') ? withoutSlashes(folder) : "";
}

}  // namespace

std::string userName() {
    if (const auto own = ownAccount(); own && !own->name.empty()) return own->name;
    const std::string name = variable("LOGNAME");
    return name.empty() ? variable("USER") : name;
}

std::string fullUserName() {
    const auto own = ownAccount();
    return own && !own->fullName.empty() ? own->fullName : userName();
}

std::string homeFolder() {
    if (std::string home = folderVariable("HOME"); !home.empty()) return home;
    const auto own = ownAccount();
    return own && !own->home.empty() ? own->home : "/";
}

std::optional<std::string> homeFolderOf(const std::string& user) {
    const auto found = account([&user](passwd* row, char* texts, std::size_t size, passwd** result) {
        return getpwnam_r(user.c_str(), row, texts, size, result);
    });
    if (!found) return std::nullopt;
    return found->home;
}

std::string temporaryFolder() {
    const std::string folder = folderVariable("TMPDIR");
    return folder.empty() ? "/tmp/" : folder.ends_with('/') ? folder : folder + "/";
}

std::string configurationFolder() {
    if (std::string folder = folderVariable("XDG_CONFIG_HOME"); !folder.empty()) return folder;
    const std::string home = homeFolder();
    return (home == "/" ? "" : home) + "/.config";
}

}  // namespace velt
