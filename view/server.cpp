#include "view/server.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <netinet/in.h>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include <libwebsockets.h>

#include "view/gate.h"
#include "view/hub.h"
#include "view/loop.h"
#include "view/text.h"

namespace view {

namespace {

constexpr int ports_tried = 100;
constexpr int send_buffer = 1 << 20; // a picture lies there while the page unpacks what came before
constexpr std::size_t message_limit = 64 << 20;

// One connection: an answer to a GET on its way, or a page.
struct session {
    std::string body{};
    page_ref p{};
    std::string got{}; // of a message that comes in pieces
};

gate own_gate;
int listener = -1;
lws_context* p_context;
lws_vhost* p_vhost;
std::map<std::string, std::string, std::less<>> files; // names and paths of what the page is made of
std::map<lws*, session> sessions;
std::vector<std::uint8_t> outgoing; // room for the library's head, then a message

std::string header(lws* wsi, lws_token_indexes which)
{
    char text[1024];
    const int n = lws_hdr_copy(wsi, text, sizeof text, which);
    return n > 0 ? std::string(text, static_cast<std::size_t>(n)) : std::string();
}

std::string file_content(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

const char* type_of(std::string_view name)
{
    constexpr std::pair<std::string_view, const char*> types[] = {
        {".js", "text/javascript; charset=utf-8"},
        {".css", "text/css; charset=utf-8"},
        {".svg", "image/svg+xml"},
        {".png", "image/png"},
        {".wav", "audio/wav"},
        {".html", "text/html; charset=utf-8"},
    };
    for (const auto& [end, type] : types)
        if (name.ends_with(end))
            return type;
    return "application/octet-stream";
}

std::string policy()
{
    const std::string port = ":" + std::to_string(own_gate.port);
    return "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self' "
           "ws://127.0.0.1" +
           port + " ws://localhost" + port + "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";
}

// Sends the head of an answer; its body follows when the connection takes it.
int answer(lws* wsi, unsigned status, const char* type, std::string body)
{
    const std::pair<const char*, std::string> headers[] = {
        {"content-type:", type},
        {"cache-control:", "no-store"},
        {"content-security-policy:", policy()},
        {"cross-origin-opener-policy:", "same-origin"},
        {"cross-origin-resource-policy:", "same-origin"},
        {"referrer-policy:", "no-referrer"},
        {"x-content-type-options:", "nosniff"},
    };
    unsigned char room[LWS_PRE + 2048];
    unsigned char *p = room + LWS_PRE, *const p_start = p, *const p_end = room + sizeof room;
    bool fits = lws_add_http_header_status(wsi, status, &p, p_end) == 0;
    for (const auto& [name, value] : headers)
        fits = fits && lws_add_http_header_by_name(wsi, reinterpret_cast<const unsigned char*>(name),
                                                   reinterpret_cast<const unsigned char*>(value.data()),
                                                   static_cast<int>(value.size()), &p, p_end) == 0;
    fits = fits && lws_add_http_header_content_length(wsi, body.size(), &p, p_end) == 0;
    if (!fits || lws_finalize_write_http_header(wsi, p_start, &p, p_end) != 0)
        return -1;
    sessions[wsi].body = std::move(body);
    lws_callback_on_writable(wsi);
    return 0;
}

int refuse(lws* wsi)
{
    return answer(wsi, HTTP_STATUS_FORBIDDEN, "text/plain",
                  "This address isn't complete, or no longer valid. The address of the phone is the one that "
                  "\"hvt view\" has printed.\n");
}

int serve_file(lws* wsi, std::string_view path)
{
    const bool is_get = lws_hdr_total_length(wsi, WSI_TOKEN_GET_URI) > 0;
    const gate_verdict verdict =
        gate_check(own_gate, path, header(wsi, WSI_TOKEN_HOST), header(wsi, WSI_TOKEN_ORIGIN), !is_get);
    if (!verdict.passes || !is_get)
        return refuse(wsi);
    if (verdict.file.starts_with("files/")) {
        const std::string kept = hub_file(verdict.file.substr(6));
        if (!kept.empty() && std::filesystem::is_regular_file(std::filesystem::symlink_status(kept)))
            return answer(wsi, HTTP_STATUS_OK, type_of(kept), file_content(kept));
    } else if (const auto found = files.find(verdict.file.empty() ? "index.html" : verdict.file);
               found != files.end()) {
        return answer(wsi, HTTP_STATUS_OK, type_of(found->first), file_content(found->second));
    }
    return answer(wsi, HTTP_STATUS_NOT_FOUND, "text/plain", "There is no such file.\n");
}

int send_body(lws* wsi)
{
    session& s = sessions[wsi];
    std::string body(LWS_PRE, '\0');
    body += s.body;
    const std::size_t size = s.body.size();
    s.body.clear();
    if (lws_write(wsi, reinterpret_cast<unsigned char*>(&body[LWS_PRE]), size, LWS_WRITE_HTTP_FINAL) < 0)
        return -1;
    return lws_http_transaction_completed(wsi) != 0 ? -1 : 0;
}

// 0 lets a page in; another answer has been given otherwise.
int check_upgrade(lws* wsi)
{
    const std::string path = header(wsi, WSI_TOKEN_GET_URI);
    const gate_verdict verdict =
        gate_check(own_gate, path, header(wsi, WSI_TOKEN_HOST), header(wsi, WSI_TOKEN_ORIGIN), true);
    if (verdict.passes && verdict.file == "link")
        return 0;
    return refuse(wsi) == 0 ? 1 : -1;
}

void join(lws* wsi)
{
    session& s = sessions[wsi];
    s.p = std::make_shared<page>();
    s.p->wake = [wsi] { lws_callback_on_writable(wsi); };
    hub_join(s.p);
}

void leave(lws* wsi)
{
    const auto found = sessions.find(wsi);
    if (found == sessions.end())
        return;
    if (found->second.p) {
        found->second.p->wake = [] {};
        hub_leave(found->second.p);
    }
    sessions.erase(found);
}

int take_message(lws* wsi, const char* part, std::size_t size)
{
    session& s = sessions[wsi];
    s.got.append(part, size);
    if (s.got.size() > message_limit)
        return -1;
    if (lws_is_final_fragment(wsi) == 0 || lws_remaining_packet_payload(wsi) != 0)
        return 0;
    std::string message;
    message.swap(s.got);
    const page_ref p = s.p;
    if (lws_frame_is_binary(wsi) != 0)
        hub_binary(p, message);
    else
        hub_text(p, message);
    return 0;
}

int send_message(lws* wsi)
{
    session& s = sessions[wsi];
    bool is_text;
    outgoing.resize(LWS_PRE);
    if (!s.p || !hub_next(*s.p, outgoing, is_text))
        return 0;
    if (is_text)
        text_make_utf8(outgoing, LWS_PRE);
    const std::size_t size = outgoing.size() - LWS_PRE;
    const lws_write_protocol kind = is_text ? LWS_WRITE_TEXT : LWS_WRITE_BINARY;
    if (lws_write(wsi, outgoing.data() + LWS_PRE, size, kind) < static_cast<int>(size))
        return -1;
    lws_callback_on_writable(wsi);
    return 0;
}

int on_event(lws* wsi, lws_callback_reasons reason, void*, void* in, std::size_t size)
{
    const char* const text = static_cast<const char*>(in);
    switch (reason) {
    case LWS_CALLBACK_HTTP:
        return serve_file(wsi, {text, size});
    case LWS_CALLBACK_HTTP_WRITEABLE:
        return send_body(wsi);
    case LWS_CALLBACK_HTTP_CONFIRM_UPGRADE:
        return check_upgrade(wsi);
    case LWS_CALLBACK_ESTABLISHED:
        join(wsi);
        return 0;
    case LWS_CALLBACK_RECEIVE:
        return take_message(wsi, text, size);
    case LWS_CALLBACK_SERVER_WRITEABLE:
        return send_message(wsi);
    case LWS_CALLBACK_RAW_RX_FILE:
        loop_turn();
        return 0;
    case LWS_CALLBACK_CLOSED:
    case LWS_CALLBACK_CLOSED_HTTP:
    case LWS_CALLBACK_WSI_DESTROY:
        leave(wsi);
        return 0;
    default:
        return 0;
    }
}

constexpr lws_protocols protocols[] = {
    {"view", on_event, 0, 65536, 0, nullptr, 0},
    {nullptr, nullptr, 0, 0, 0, nullptr, 0},
};

void accept_all()
{
    int fd;
    while ((fd = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)) >= 0) {
        setsockopt(fd, SOL_SOCKET, SO_SNDBUF, &send_buffer, sizeof send_buffer);
        lws_adopt_socket_vhost(p_vhost, fd); // closes it when it fails
    }
}

// Listens at the first free port from `port` on.
std::string listen_at(int& port)
{
    listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int yes = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int first = port;
    for (; port < first + ports_tried && port < 65536; port++) {
        addr.sin_port = htons(static_cast<std::uint16_t>(port));
        if (bind(listener, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) == 0 &&
            listen(listener, 16) == 0)
            return {};
        if (errno != EADDRINUSE)
            return "port " + std::to_string(port) + " can't be had: " + std::strerror(errno);
    }
    return "the ports from " + std::to_string(first) + " on are all taken";
}

void find_files(const std::string& folder)
{
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error))
        if (entry.is_regular_file(error))
            files[std::filesystem::relative(entry.path(), folder, error).string()] = entry.path().string();
}

} // namespace

std::string server_open(const server_options& options, int& port)
{
    find_files(options.page_folder);
    if (!files.contains("index.html"))
        return "the page isn't in " + options.page_folder;
    port = options.port;
    if (std::string wrong = listen_at(port); !wrong.empty())
        return wrong;
    own_gate = {options.token, port};
    lws_set_log_level(0, nullptr); // no address, and so no token, gets into any log
    lws_context_creation_info info{};
    info.port = CONTEXT_PORT_NO_LISTEN_SERVER;
    info.protocols = protocols;
    info.options = LWS_SERVER_OPTION_DISABLE_IPV6;
    info.gid = static_cast<gid_t>(-1);
    info.uid = static_cast<uid_t>(-1);
    p_context = lws_create_context(&info);
    p_vhost = p_context != nullptr ? lws_get_vhost_by_name(p_context, "default") : nullptr;
    if (p_vhost == nullptr)
        return "the web library doesn't start";
    lws_sock_file_fd_type fd{};
    fd.filefd = loop_descriptor();
    if (lws_adopt_descriptor_vhost(p_vhost, LWS_ADOPT_RAW_FILE_DESC, fd, "view", nullptr) == nullptr)
        return "the web library doesn't take a descriptor";
    loop_add(listener, accept_all);
    return {};
}

void server_run()
{
    while (lws_service(p_context, 0) >= 0) {
    }
}

} // namespace view
