// hvt-view as a browser meets it, without one: who is let in, what a page is told, what it can't reach.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"
#include "view/web_client.h"

namespace {

constexpr int quiet_ms = 400;

// Without the version: the library answers a refused upgrade as HTTP/1.0.
std::string status(const std::string& answer)
{
    const std::size_t at = std::min(answer.find(' '), answer.size());
    return answer.substr(at, answer.find('\r') - at);
}

const std::string forbidden = " 403 Forbidden";

std::string ws_head(const view_process& v, const std::string& token, const std::string& origin)
{
    return "GET /" + token + "/link HTTP/1.1\r\nHost: " + v.host() + "\r\n" + origin +
           "Upgrade: websocket\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: "
           "dGhlIHNhbXBsZSBub25jZQ==\r\n";
}

struct View : testing::Test {
    phone_fixture phone;
    std::optional<view_process> v;

    void SetUp() override
    {
        ASSERT_EQ(phone.up(), "");
        v.emplace(phone.dir);
    }

    std::string say(const std::string& request)
    {
        std::string answer;
        EXPECT_TRUE(phone.ask(request, answer)) << answer;
        return answer;
    }
};

TEST_F(View, OnlyItsOwnAddressIsServed)
{
    ASSERT_EQ(v->token.size(), 32u);
    const std::string page = web_get(*v, "");
    EXPECT_EQ(status(page), " 200 OK");
    EXPECT_NE(page.find("<title>The phone</title>"), page.npos);
    for (const char* line :
         {"content-security-policy: default-src 'none'; script-src 'self'; style-src 'self';",
          "referrer-policy: no-referrer\r\n", "x-content-type-options: nosniff\r\n",
          "cache-control: no-store\r\n"})
        EXPECT_NE(page.find(line), page.npos) << line;
    const std::string host = "Host: " + v->host() + "\r\n";
    for (const std::string& head :
         {"GET / HTTP/1.1\r\n" + host, "GET /index.html HTTP/1.1\r\n" + host,
          "GET /" + v->token + "/ HTTP/1.1\r\n" + host + "Origin: http://evil.example\r\n",
          "GET /" + v->token + "/ HTTP/1.1\r\nHost: evil.example:" + std::to_string(v->port) + "\r\n",
          "POST /" + v->token + "/ HTTP/1.1\r\n" + host + "Content-Length: 0\r\n"})
        EXPECT_EQ(status(web_request(v->port, head)), forbidden) << head;
    EXPECT_EQ(web_request(v->port, "GET / HTTP/1.1\r\n" + host, "127.0.0.2"), "refused");
}

TEST_F(View, APageOfAnotherSiteCanNeitherReadNorDriveThePhone)
{
    const std::string own = "Origin: http://" + v->host() + "\r\n";
    const std::string other(32, 'a');
    for (const auto& [token, origin] : {std::pair(v->token, std::string()),
                                        {v->token, "Origin: http://evil.example\r\n"},
                                        {other, own},
                                        {v->token + "/x", own}})
        EXPECT_EQ(status(web_request(v->port, ws_head(*v, token, origin))), forbidden) << token << origin;
}

TEST_F(View, TheTokenIsNowhereButInTheAddress)
{
    web_get(*v, "style.css");
    EXPECT_EQ(file_text("/proc/" + std::to_string(v->pid) + "/cmdline").find(v->token), std::string::npos);
    for (const auto& entry : std::filesystem::directory_iterator(phone.dir + "/log"))
        EXPECT_EQ(file_text(entry.path()).find(v->token), std::string::npos) << entry.path();
    struct stat st {};
    ASSERT_EQ(stat((phone.dir + "/view").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u);
}

TEST_F(View, NoFileOfTheHostCanBeRead)
{
    const std::string secret = phone.dir + "/secret.raw";
    std::ofstream(secret) << std::string(64, 's');
    for (const char* file :
         {"../../etc/passwd", "..%2f..%2fetc/passwd", "files/../../secret.raw", "files/..%2f..%2fsecret.raw",
          "files//etc/passwd", "files/", "files/.", "/etc/passwd"}) {
        const std::string answer = web_get(*v, file);
        EXPECT_TRUE(status(answer) == forbidden || status(answer) == " 404 Not Found") << file << answer;
    }
    std::filesystem::create_symlink(secret, phone.dir + "/view/files/link.raw");
    EXPECT_EQ(status(web_get(*v, "files/link.raw")), " 404 Not Found");
    web_page page(*v);
    for (const std::string& named :
         {secret, std::string("../../secret.raw"), std::string("a/../../../secret.raw")})
        EXPECT_TRUE(page.ask("scene 1 " + named + " 4x4").starts_with("error\n")) << named;
    EXPECT_TRUE(page.ask("from /").starts_with("error\n"));
    EXPECT_TRUE(page.ask("screen /stolen.png").starts_with("ok\n"));
    EXPECT_TRUE(std::filesystem::exists(phone.dir + "/view/files/stolen.png"))
        << "whole paths lie below its folder";
    page.send("keep ../over.raw");
    EXPECT_NE(page.text("said "), "");
    page.send("keep mine.raw");
    page.send(std::string(24, 'm'), true);
    EXPECT_EQ(page.ask("scene 1 mine.raw 4x4"), "ok\n");
    EXPECT_NE(web_get(*v, "files/mine.raw").find("\r\n\r\n" + std::string(24, 'm')), std::string::npos);
}

TEST_F(View, WhatAnotherClientChangesIsTold)
{
    web_page page(*v);
    EXPECT_EQ(page.text("phone "), "phone on");
    say("light 33");
    EXPECT_EQ(page.text("word "), "word light 33");
    EXPECT_EQ(page.ask("light"), "ok\n33");
    EXPECT_TRUE(page.ask("nosuch").starts_with("error\nno word \"nosuch\""));
    page.send("want lamps,log kmsg");
    EXPECT_EQ(page.text("lamp vib"), "lamp vib 0");
    std::ofstream(phone.dir + "/root/sys/hvt/hvt-vib/vib") << "3000\n";
    EXPECT_EQ(page.text("lamp vib"), "lamp vib 3000");
}

TEST_F(View, AQuietPanelSendsNothingAndAHiddenPageGetsNothing)
{
    web_page page(*v);
    EXPECT_EQ(page.text("phone "), "phone on");
    page.send("want screen0");
    EXPECT_EQ(page.picture(), 18 * 60) << "a first picture is whole";
    EXPECT_EQ(page.picture(quiet_ms), -1);
    say("key 116 tap"); // the menu
    const int changed = page.picture();
    EXPECT_GT(changed, 0);
    EXPECT_LE(changed, 18 * 60);
    page.send("want ");
    while (page.picture(quiet_ms) >= 0) {
    }
    say("key 116 tap");
    EXPECT_EQ(page.picture(quiet_ms), -1);
    page.send("want screen0");
    EXPECT_GT(page.picture(), 0) << "what changed meanwhile comes now";
}

TEST_F(View, TouchesAndKeysReachTheProgram)
{
    web_page page(*v);
    EXPECT_EQ(page.text("phone "), "phone on");
    page.send("hand key 116 tap");
    EXPECT_EQ(page.text("word "), "word key 116 tap");
    page.send("hand touch 250 190 tap");
    EXPECT_EQ(page.text("word "), "word touch 250 190 tap");
    page.send("hand battery 3000");
    EXPECT_NE(page.text("said "), "");
}

TEST_F(View, TheConsoleLeavesAnotherStationItsBytes)
{
    web_page page(*v);
    EXPECT_EQ(page.text("phone "), "phone on");
    page.send("want log port");
    ASSERT_NE(page.text("tail port"), "");
    page.send("type case?"); // the fixture has the port open
    std::string got;
    phone.receive(got, 15);
    EXPECT_EQ(got, "CASE:false,OK\r\n");
    std::string shown;
    while (shown.find("> OK\n> \\r\\n") == shown.npos) {
        const std::string more = page.text("log port");
        ASSERT_NE(more, "") << shown;
        shown += more;
    }
    EXPECT_NE(shown.find("< case?\\r"), shown.npos);
    close(phone.port);
    phone.port = -1;
    page.send("type help"); // longer than what a terminal holds: somebody must take it
    std::string answer;
    while (answer.find("\nHELP") == answer.npos && answer.size() < 200000) {
        const std::string more = page.text("log port", 1500);
        if (more.empty())
            break;
        answer += more;
    }
    EXPECT_GT(answer.size(), 8000u);
    EXPECT_EQ(say("idle"), "");
}

TEST_F(View, ThePageComesBackWithThePhone)
{
    web_page page(*v);
    EXPECT_EQ(page.text("phone "), "phone on");
    page.send("want screen0");
    EXPECT_GT(page.picture(), 0);
    ASSERT_EQ(phone.down(), "");
    EXPECT_EQ(page.text("phone "), "phone off");
    EXPECT_EQ(page.ask("light"), "error\nthe phone is off");
    ASSERT_EQ(phone.up(), "");
    EXPECT_EQ(page.text("phone "), "phone on");
    EXPECT_EQ(page.ask("clock hold"), "ok\n");
    ASSERT_EQ(phone.down(), "");
    EXPECT_EQ(page.text("phone "), "phone off");
    std::filesystem::rename(phone.dir, phone.dir + ".away");
    EXPECT_EQ(page.text("phone "), "phone gone");
    std::filesystem::rename(phone.dir + ".away", phone.dir);
    EXPECT_EQ(page.text("phone "), "phone off");
    page.send("start");
    EXPECT_EQ(page.text("phone ", 20'000), "phone on");
    kill(std::atoi(file_text(phone.dir + "/hvt.pid").c_str()), SIGKILL);
    EXPECT_EQ(page.text("phone "), "phone off");
}

TEST_F(View, APortThatIsTakenIsLeftForTheNext)
{
    const view_process second(phone.dir, v->port);
    EXPECT_EQ(second.port, v->port + 1);
    EXPECT_EQ(status(web_get(second, "")), " 200 OK");
    EXPECT_NE(v->token, second.token);
}

TEST_F(View, WhatIsNoMessageHarmsNobody)
{
    web_page page(*v);
    const char* const wrong[] = {"",        " ",
                                 "seen 9",  "ask",
                                 "ask 1",   "keep",
                                 "keep /a", "want log ../x,screen9",
                                 "type",    "hand touch 1 1 tap\nlight 5"};
    for (const char* message : wrong)
        page.send(message);
    page.send(std::string(300, '\xFF'), true);
    page.send("ask 8 light 1\nlight 2");
    EXPECT_TRUE(page.text("answer 8 ").starts_with("answer 8 error\n"));
    std::string junk = "\xC1\xFE";
    page.send(junk + std::string(70000, '\0'));
    EXPECT_EQ(status(web_get(*v, "")), " 200 OK");
    web_page other(*v);
    EXPECT_EQ(other.ask("usb"), "ok\non");
}

} // namespace
