#include "VELTRuntime/platform/foundation/url_loader.h"

#include <cstdlib>
#include <curl/curl.h>
#include <dlfcn.h>
#include <memory>

namespace velt {

namespace {

constexpr long kMostRedirects = 20;
constexpr std::size_t kMostBytes = std::size_t{1} << 30;

/// The functions of libcurl that are used here.
struct Curl {
    decltype(&::curl_global_init) globalInit = nullptr;
    decltype(&::curl_easy_init) init = nullptr;
    decltype(&::curl_easy_setopt) setOption = nullptr;
    decltype(&::curl_easy_perform) perform = nullptr;
    decltype(&::curl_easy_cleanup) cleanup = nullptr;
    decltype(&::curl_easy_strerror) errorText = nullptr;
    std::string failure;

    template <class Function> void find(void* library, const char* name, Function& function) {
        function = reinterpret_cast<Function>(dlsym(library, name));
        if (!function) failure.append("libcurl has no ").append(name).append("; ");
    }

    Curl() {
        void* library = nullptr;
        for (const char* name : {"libcurl.so.4", "libcurl-gnutls.so.4", "libcurl-nss.so.4"}) {
            if ((library = dlopen(name, RTLD_NOW | RTLD_LOCAL))) break;
        }
        if (!library) {
            failure = "libcurl could not be loaded";
            return;
        }
        find(library, "curl_global_init", globalInit);
        find(library, "curl_easy_init", init);
        find(library, "curl_easy_setopt", setOption);
        find(library, "curl_easy_perform", perform);
        find(library, "curl_easy_cleanup", cleanup);
        find(library, "curl_easy_strerror", errorText);
        if (failure.empty() && globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) failure = "libcurl could not be started";
    }
};

const Curl& curl() {
    static const Curl& library = *new Curl;  // never unloaded: its threads and handlers may still be needed
    return library;
}

std::size_t appendBytes(char* bytes, std::size_t size, std::size_t count, void* body) {
    auto& text = *static_cast<std::string*>(body);
    if (text.size() + size * count > kMostBytes) return 0;
    text.append(bytes, size * count);
    return size * count;
}

}  // namespace

UrlTimeouts& urlTimeouts() {
    static UrlTimeouts timeouts;
    return timeouts;
}

std::optional<std::string> loadUrl(const std::string& url, std::string& failure) {
    const Curl& library = curl();
    if (!library.failure.empty()) {
        failure = url + ": " + library.failure;
        return std::nullopt;
    }
    const std::unique_ptr<CURL, decltype(library.cleanup)> transfer(library.init(), library.cleanup);
    if (!transfer) {
        failure = url + ": libcurl gave no transfer";
        return std::nullopt;
    }
    std::string body;
    const auto set = [&](CURLoption option, auto value) { library.setOption(transfer.get(), option, value); };
    set(CURLOPT_URL, url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, kMostRedirects);
    set(CURLOPT_FAILONERROR, 1L);
    // As other programs that speak https: the user may name the authorities to trust.
    if (const char* authorities = std::getenv("SSL_CERT_FILE"); authorities && *authorities) {
        set(CURLOPT_CAINFO, authorities);
    }
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_ACCEPT_ENCODING, "");
    set(CURLOPT_CONNECTTIMEOUT, urlTimeouts().connect);
    set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    set(CURLOPT_LOW_SPEED_TIME, urlTimeouts().stall);
    set(CURLOPT_WRITEFUNCTION, &appendBytes);
    set(CURLOPT_WRITEDATA, static_cast<void*>(&body));
    const CURLcode result = library.perform(transfer.get());
    if (result != CURLE_OK) {
        failure = url + ": " + library.errorText(result);
        return std::nullopt;
    }
    return body;
}

}  // namespace velt
