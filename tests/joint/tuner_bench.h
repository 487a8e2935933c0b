// The demodulator with its supply, and the tuner library that is to be tried on it: registers are set and
// looked at past the bus, by the letters of its three addresses.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "board/i2c_bus.h"
#include "core/clock.h"
#include "i2c/i2c.h"
#include "joint/joint.h"
#include "tmr/tmr.h"
#include "tunerx/tunerx.h"

constexpr i2c_cfg_row tuner_chips[] = {{"isdb", 4, 0x69}, {"", 0, 0}};

struct TunerBench : Joint {
    void SetUp() override
    {
        tmr_init();
        i2c_init();
        i2c_cfg(tuner_chips);
        ask("gpio 13 1");
        ask("gpio 14 1");
        libtuner_init();
    }

    // Register `number` of 'A', 'B' or 'C'.
    static std::uint8_t& reg(char letter, int number)
    {
        return phone::i2c_chip(4, 0x68 + letter - 'A')->val[static_cast<std::size_t>(number)];
    }

    using numbers = std::vector<int>;

    // `count` of them from `first` on.
    static numbers regs(char letter, int first, int count)
    {
        numbers values;
        for (int i = 0; i < count; i++)
            values.push_back(reg(letter, first + i));
        return values;
    }

    static void fill(std::uint8_t value)
    {
        for (const char letter : {'A', 'B', 'C'})
            for (int number = 0; number < 0xF0; number++)
                reg(letter, number) = value;
        for (int number = 0xF0; number < 0xFF; number++)
            reg('C', number) = value;
    }

    // From now on the phone's time goes on by itself: in steps, each as soon as all work is done.
    void let_run()
    {
        if (stepper.joinable())
            return;
        stepping = true;
        stepper = std::thread([this] {
            while (stepping)
                phone::clock_step(1'000'000);
        });
    }

    // For work that spins instead of sleeping: time runs on, twenty times as fast as outside.
    void let_spin()
    {
        stand_still();
        ask("speed 20");
        ask("clock run");
    }

    void stand_still()
    {
        stepping = false;
        if (stepper.joinable())
            stepper.join();
    }

    void TearDown() override { stand_still(); }

    // A chip that was brought up from the healthy phone's files.
    void bring_up()
    {
        let_run();
        tunXParams.state = TUNER_BOOTED;
        ASSERT_EQ(tunerx_initialize(), 0);
    }

private:
    std::atomic<bool> stepping = false;
    std::thread stepper;
};

// A bit of a record and the bit of a register that goes with it.
struct bit_pair {
    int record;
    char letter;
    int number, bit;
};

// Pairs in the notation of a table: "0-1 B139 6-7, 8-14 C197 6-0", either side up or down.
inline std::vector<bit_pair> pairs(std::string_view text)
{
    std::vector<bit_pair> found;
    const std::string whole(text);
    for (std::size_t at = 0; at < whole.size();) {
        int first, last, number, low, high, used = 0;
        char letter;
        if (std::sscanf(whole.c_str() + at, " %d-%d %c%d %d-%d%n", &first, &last, &letter, &number, &low,
                        &high, &used) != 6)
            ADD_FAILURE() << "not a row: " << whole.substr(at);
        if (used == 0)
            break;
        for (int i = 0; i <= last - first; i++)
            found.push_back({first + i, letter, number, high >= low ? low + i : low - i});
        at += static_cast<std::size_t>(used) + 1;
    }
    return found;
}
