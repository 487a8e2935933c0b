// How a phone starts, or says why it can't.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"

namespace {

struct Start : testing::Test {
    phone_fixture phone;
};

// What a start says that fails.
void expect_says(const std::string& said, const std::string& wanted)
{
    EXPECT_NE(said.find(wanted), said.npos) << said;
}

TEST_F(Start, ASecondStartOnTheSameFolderSaysSo)
{
    ASSERT_EQ(phone.up(), "");
    phone_fixture second;
    const std::string own = second.dir;
    second.dir = phone.dir;
    const std::string wrong = second.up();
    second.dir = own;
    const std::string pid = std::to_string(std::atoi(file_text(phone.dir + "/hvt.pid").c_str()));
    expect_says(wrong, "hvt: " + phone.dir + " is already running (process " + pid + "); \"./hvt down " +
                           phone.dir + "\" stops it");
    EXPECT_TRUE(phone.runs());
}

TEST_F(Start, WhatLiesInTheFolderSurvives)
{
    const std::string state = "/sys/devices/virtual/android_usb/android0/state";
    std::filesystem::create_directories(phone.dir + "/root/sys/class/x");
    std::ofstream(phone.dir + "/root/sys/class/x/y") << "mine";
    ASSERT_EQ(phone.up(), "");
    EXPECT_EQ(file_text(phone.dir + "/root/sys/class/x/y"), "mine");
    EXPECT_EQ(file_text(phone.dir + "/root" + state), "CONFIGURED\n");
    ASSERT_EQ(phone.down(), "");
    std::filesystem::remove(phone.dir + "/root" + state);
    ASSERT_EQ(phone.up(), "");
    EXPECT_FALSE(std::filesystem::exists(phone.dir + "/root" + state)) << "a seed is laid once";
}

TEST_F(Start, AFolderGetsWhatIsNewSinceItsFirstStart)
{
    ASSERT_EQ(phone.up(), "");
    ASSERT_EQ(phone.down(), "");
    const std::string state = "/sys/devices/virtual/android_usb/android0/state";
    // As an older phone has left it, which knew nothing of this file.
    std::string seeds = file_text(phone.dir + "/seeds");
    const std::size_t at = seeds.find(state + "\n");
    ASSERT_NE(at, seeds.npos);
    seeds.erase(at, state.size() + 1);
    std::ofstream(phone.dir + "/seeds") << seeds;
    std::filesystem::remove(phone.dir + "/root" + state);
    ASSERT_EQ(phone.up(), "");
    EXPECT_EQ(file_text(phone.dir + "/root" + state), "CONFIGURED\n");
}

TEST_F(Start, AFolderOfSomebodyElseIsRefused)
{
    std::ofstream(phone.dir + "/letter.txt") << "mine";
    expect_says(phone.up(), "hvt: " + phone.dir + ": isn't a phone's folder: it has files");
    EXPECT_FALSE(std::filesystem::exists(phone.dir + "/hvt.pid"));
    std::filesystem::create_directories(phone.dir + "/root");
    std::filesystem::create_directories(phone.dir + "/etc");
    EXPECT_NE(phone.up(), "") << "a system's own root folder";
    std::filesystem::remove(phone.dir + "/etc");
    EXPECT_EQ(phone.up(), "") << "a folder that a bench has prepared";
}

TEST_F(Start, APhoneWhoseFolderIsDeletedEnds)
{
    ASSERT_EQ(phone.up(), "");
    const int pid = std::atoi(file_text(phone.dir + "/hvt.pid").c_str());
    std::filesystem::remove_all(phone.dir);
    for (int turn = 0; turn < 2000 && kill(pid, 0) == 0; turn++)
        usleep(5000);
    EXPECT_NE(kill(pid, 0), 0);
    std::string got;
    phone.receive(got, 1);
    EXPECT_EQ(got, "");
}

TEST_F(Start, ADamagedFolderIsNamed)
{
    for (const char* part : {"root", "units", "log", "hvt.pid"}) {
        phone_fixture one;
        const std::string path = one.dir + "/" + part;
        if (std::string(part) == "hvt.pid")
            std::filesystem::create_directory(path);
        else
            std::ofstream(path) << "not a folder";
        std::ofstream(one.dir + "/phone.conf") << "\n";
        const std::string wrong = one.up();
        expect_says(wrong, "hvt: " + path + ": can't be ");
    }
}

TEST_F(Start, AnUnwritableFolderIsNamed)
{
    // Even root can't make a folder in /proc.
    const std::string own = phone.dir;
    phone.dir = "/proc/nobody/phone";
    const std::string wrong = phone.up();
    phone.dir = own;
    expect_says(wrong, "hvt: /proc/nobody/phone: can't be made: ");
}

TEST_F(Start, AFullDiskIsNamedAndNothingIsLost)
{
    if (mount("none", phone.dir.c_str(), "tmpfs", 0, "size=16k") != 0)
        GTEST_SKIP() << "a small file system can't be mounted here";
    std::filesystem::create_directories(phone.dir + "/root/keep");
    std::ofstream(phone.dir + "/root/keep/this") << "as it was";
    std::ofstream(phone.dir + "/filler") << std::string(1 << 20, 'x');
    const std::string wrong = phone.up();
    expect_says(wrong, "No space left on device");
    EXPECT_EQ(file_text(phone.dir + "/root/keep/this"), "as it was");
    // With room again the phone starts and is whole.
    std::filesystem::remove(phone.dir + "/filler");
    EXPECT_EQ(phone.down(), "");
    ASSERT_EQ(mount("none", phone.dir.c_str(), "tmpfs", MS_REMOUNT, "size=64m"), 0);
    EXPECT_EQ(phone.up(), "");
    EXPECT_EQ(file_text(phone.dir + "/root/sys/devices/virtual/android_usb/android0/state"), "CONFIGURED\n");
    phone.down();
    close(phone.port);
    phone.port = -1;
    umount2(phone.dir.c_str(), MNT_DETACH);
}

TEST_F(Start, NobodyButTheOwnerReachesTheControlPort)
{
    const mode_t former = umask(0);
    const std::string wrong = phone.up();
    umask(former);
    ASSERT_EQ(wrong, "");
    struct stat st;
    ASSERT_EQ(stat((phone.dir + "/control").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0600u);
}

TEST_F(Start, ABatteryThatCantBeWrittenSaysSoAndFollowsLater)
{
    ASSERT_EQ(phone.up(), "");
    const std::string voltage = phone.dir + "/root/sys/class/power_supply/battery/voltage_now";
    std::string answer;
    ASSERT_TRUE(phone.ask("battery 3812 -200", answer));
    std::filesystem::create_directory(phone.dir + "/battery.new"); // in the way of what is written first
    std::ofstream(phone.dir + "/battery.new/x") << "x";
    EXPECT_FALSE(phone.ask("battery 3700 -100", answer));
    EXPECT_EQ(answer, "the attributes can't be written, is the disk full? They follow when they can");
    EXPECT_EQ(file_text(voltage), "3812000\n");
    std::filesystem::remove_all(phone.dir + "/battery.new");
    std::string reply;
    ASSERT_TRUE(port_send(phone.port, "batc=1\r", reply, 10'000));
    phone.receive(reply, std::string_view("BATC:3700,OK\r\n").size());
    EXPECT_EQ(std::tuple(reply, file_text(voltage)), std::tuple("BATC:3700,OK\r\n", "3700000\n"));
    EXPECT_EQ(phone.down(), "");
}

TEST_F(Start, AWrongLineOfPhoneConfIsNamed)
{
    const char* const lines[][2] = {
        {"\n# fine\ncolour red\n", "line 3: \"colour\" isn't understood; the keys are battery, "},
        {"without /dev/i2c-5\nwithout /sys/class\nwithout /dev/i2c-6\n",
         "line 3: no phone has /dev/i2c-6, so none can be without it"},
        {"with /dev/nonsense\n", "line 1: no phone has /dev/nonsense"},
        {"without\n", "line 1: without wants one path, or the bare name of a closed library"},
        {"without libnvqq.so\n", "line 1: no closed library has the name libnvqq.so"},
        {"usb sideways\n", "line 1: on, off or off hangup is wanted"},
        {"speed\n", "line 1: speed wants a value"},
        {"setting luigi start_key\n", "line 1: setting wants a module, a key and a value"},
        {"setting luigi start-key x\n", "line 1: \"start-key\" is no name"},
        {"setting luigi canvas_padding 4294967296\n", "line 1: a number goes to 4294967295"},
    };
    for (const auto& [text, reason] : lines) {
        phone_fixture one;
        std::ofstream(one.dir + "/phone.conf") << text;
        const std::string wrong = one.up();
        expect_says(wrong, "hvt: " + one.dir + "/phone.conf, " + reason);
    }
}

TEST_F(Start, TheConsoleIsOnTheSecondPortWhereThereIsOne)
{
    for (const bool second : {false, true}) {
        phone_fixture one;
        std::ofstream(one.dir + "/phone.conf") << (second ? "with /dev/ttyGS1\n" : "");
        ASSERT_EQ(one.up(), "");
        std::string answer;
        ASSERT_TRUE(one.ask("calls line", answer));
        ASSERT_GT(write(one.port, "case?\r", 6), 0);
        ASSERT_TRUE(one.ask("idle", answer));
        ASSERT_TRUE(one.ask("calls", answer));
        EXPECT_EQ(answer.substr(0, answer.find('\n')),
                  second ? "write /dev/ttyGS1 = 10" : "write /dev/ttyGS0 = 10");
    }
}

TEST_F(Start, ASessionOutlivesARestartAndSaysWhenThePhoneGoesOff)
{
    ASSERT_EQ(phone.up(), "");
    close(phone.port); // it would take a part of the answers
    phone.port = -1;
    const std::string station = hvt_virtual.substr(0, hvt_virtual.rfind('/')) + "/hvt-station " + phone.dir;
    FILE* stream =
        popen(("printf 'case?\\nkill=1\\ncase?\\npoff\\nrev\\n' | " + station + " 2>&1").c_str(), "r");
    ASSERT_NE(stream, nullptr);
    char text[256] = {};
    EXPECT_GT(std::fread(text, 1, sizeof text - 1, stream), 0u);
    EXPECT_EQ(WEXITSTATUS(pclose(stream)), 1);
    EXPECT_STREQ(text, "CASE:false,OK\nTP,OK\nCASE:false,OK\n"
                       "hvt: the phone is off; the rest of the input wasn't sent\n");
}

TEST_F(Start, AProgramThatStopsItselfLeavesItsReason)
{
    ASSERT_EQ(phone.up(), "");
    std::string answer;
    ASSERT_TRUE(phone.ask("fail open /proc/version", answer));
    ASSERT_GT(write(phone.port, "vers=2\r", 7), 0);
    EXPECT_FALSE(phone.ask("idle", answer));
    EXPECT_EQ(answer, "the phone went off");
    phone.down();
    const std::string log = file_text(phone.dir + "/log/kmsg");
    EXPECT_NE(log.find("phone: the program stopped itself: fd >= 0, vers_linux.cpp line "), log.npos) << log;
}

TEST_F(Start, WithoutAPortTheProgramRunsOn)
{
    std::ofstream(phone.dir + "/phone.conf") << "without /dev/ttyGS0\n";
    ASSERT_EQ(phone.up(), "");
    std::string answer;
    EXPECT_TRUE(phone.ask("idle", answer)) << answer;
    EXPECT_TRUE(phone.runs());
}

} // namespace
