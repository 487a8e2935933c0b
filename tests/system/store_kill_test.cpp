// The power goes in the middle of a write: a unit holds its old bytes or its new ones, never half of either,
// and the phone starts again.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>

#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"

namespace {

constexpr int kills = 300;
constexpr std::size_t unit_size = 900;
constexpr int first_byte = 0x11;
constexpr int second_byte = 0xEE;

struct unit {
    const char* number; // as the command takes it
    const char* file;
};

constexpr unit units[] = {
    {"5", "00000005"},
    {"0x80001363", "80001363"},
};

std::string write_line(const unit& u, int byte)
{
    std::string line = std::string("tact=11,") + u.number;
    for (std::size_t i = 0; i < unit_size; i++)
        line += "," + std::to_string(byte);
    return line + "\r";
}

// The byte that the whole file consists of; -1 for anything else.
int whole_of(const std::string& path)
{
    const std::string bytes = file_text(path);
    if (bytes.size() != unit_size || bytes.find_first_not_of(bytes[0]) != std::string::npos)
        return -1;
    return static_cast<unsigned char>(bytes[0]);
}

int halves_in(const std::string& dir)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        count += entry.path().filename().string().starts_with(".half-") ? 1 : 0;
    return count;
}

int pid_of(const phone_fixture& phone)
{
    int pid = 0;
    std::ifstream(phone.dir + "/hvt.pid") >> pid;
    return pid;
}

// Sends a line and waits for its reply; false when the port has died or something else came back.
bool exchange(const phone_fixture& phone, const std::string& line)
{
    const std::string wanted = "TACT:,OK\r\n";
    std::string got;
    if (!port_send(phone.port, line, got, 1000))
        return false;
    phone.receive(got, wanted.size());
    return got == wanted;
}

// Writes the unit over and over, until the phone dies under it.
void write_until_killed(const phone_fixture& phone, const unit& u, std::chrono::microseconds life)
{
    const std::string lines[] = {write_line(u, first_byte), write_line(u, second_byte)};
    // One whole write, so that there is an old unit.
    ASSERT_TRUE(exchange(phone, "tact=1\r"));
    ASSERT_TRUE(exchange(phone, lines[0]));
    std::thread killer([&] {
        std::this_thread::sleep_for(life);
        kill(pid_of(phone), SIGKILL);
    });
    for (int i = 1; exchange(phone, lines[i % 2]); i++) {
    }
    killer.join();
    while (phone.runs())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST(StoreKill, AUnitIsWholeWheneverTheProgramIsKilled)
{
    phone_fixture phone;
    std::mt19937 random(20130729);
    std::uniform_int_distribution<int> life_us(0, 12'000);
    int in_the_middle = 0;
    int seen[2] = {};
    for (int i = 0; i < kills; i++) {
        const unit& u = units[i % 2];
        ASSERT_EQ(phone.up(), "") << "start " << i;
        EXPECT_EQ(halves_in(phone.dir + "/units"), 0) << "start " << i;
        write_until_killed(phone, u, std::chrono::microseconds(life_us(random)));
        const int byte = whole_of(phone.dir + "/units/" + u.file);
        ASSERT_TRUE(byte == first_byte || byte == second_byte) << "kill " << i << ": unit " << u.number;
        seen[byte == first_byte ? 0 : 1]++;
        in_the_middle += halves_in(phone.dir + "/units");
        phone.down();
    }
    // The kills did hit writes, and both the old and the new bytes were found.
    EXPECT_GT(in_the_middle, 0);
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    RecordProperty("in_the_middle", in_the_middle);
}

} // namespace
