// A small HTTP server on the loopback address, for tests of URL loading.
#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <functional>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace velt::test {

/// Answers one request after the other with what a function makes of its path: the whole response, header included. An
/// empty response closes the connection.
class HttpServer {
public:
    explicit HttpServer(std::function<std::string(const std::string& path)> answer) : answer_(std::move(answer)) {
        listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        bind(listener_, reinterpret_cast<sockaddr*>(&address), length);
        listen(listener_, 8);
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~HttpServer() {
        shutdown(listener_, SHUT_RDWR);
        thread_.join();
        close(listener_);
    }
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    std::string url(const std::string& path, const std::string& scheme = "http") const {
        return scheme + "://127.0.0.1:" + std::to_string(port_) + path;
    }

private:
    void serve() {
        for (;;) {
            const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (connection < 0) return;
            std::string request;
            char bytes[4096];
            while (request.find("\r\n\r\n") == request.npos) {
                const ssize_t count = recv(connection, bytes, sizeof bytes, 0);
                if (count <= 0) break;
                request.append(bytes, static_cast<std::size_t>(count));
                if (request[0] == 0x16) break;  // the start of an encrypted connection
            }
            const std::size_t from = request.find(' ') + 1;
            const std::string response = answer_(request.substr(from, request.find(' ', from) - from));
            for (std::size_t sent = 0; sent < response.size();) {
                const ssize_t count = send(connection, response.data() + sent, response.size() - sent, MSG_NOSIGNAL);
                if (count <= 0) break;
                sent += static_cast<std::size_t>(count);
            }
            close(connection);
        }
    }

    std::function<std::string(const std::string&)> answer_;
    int listener_ = -1;
    unsigned port_ = 0;
    std::thread thread_;
};

inline std::string httpResponse(const std::string& status, const std::string& body, const std::string& header = "") {
    std::string response = "HTTP/1.1 ";
    response.append(status).append("\r\nContent-Length: ").append(std::to_string(body.size())).append("\r\n");
    return response.append(header).append("Connection: close\r\n\r\n").append(body);
}

}  // namespace velt::test
