// The link layer of the PN65's download: what it makes of a byte that says "not ready", what its operations
// refuse, and its timers. On a bus that gives what the test wants; a pin always says that there is something.
#include "dal.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <deque>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <thread>

#include "gpio_linux/gpio_linux.h"
#include "pin/pin.h"
#include "pin_brenk/pin_brenk.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "unit/plat_fake.h"

namespace {

using namespace pn65_dnld;

constexpr int fails = -1;

std::deque<int> given; // a byte for each reading, or fails
int readings;

int bus_ioctl(int, unsigned long request, void* arg)
{
    if (request != I2C_RDWR)
        return 0;
    const i2c_msg& m = *static_cast<const i2c_rdwr_ioctl_data*>(arg)->msgs;
    if ((m.flags & I2C_M_RD) == 0)
        return 1;
    readings++;
    const int byte = given.empty() ? fails : given.front();
    if (!given.empty())
        given.pop_front();
    m.buf[0] = static_cast<std::uint8_t>(byte);
    errno = EIO;
    return byte == fails ? -1 : 1;
}

ssize_t pin_read(int, void* buf, std::size_t size)
{
    std::memset(buf, '1', size);
    return static_cast<ssize_t>(size);
}

struct Pn65Link : testing::Test {
    dal_link link;
    const dal_link::operations* ops = nullptr;
    std::vector<std::uint8_t> reply;
    std::atomic<int> told = 0; // replies, exceptions by 100

    void SetUp() override
    {
        static plat_callouts co;
        plat_fake_reset();
        co = plat_linux_co;
        co.timer_create = plat_fake_co.timer_create;
        co.timer_settime = plat_fake_co.timer_settime;
        co.timer_delete = plat_fake_co.timer_delete;
        co.open = [](const char*, int, mode_t) { return 1000; };
        co.close = [](int) { return 0; };
        co.lseek = [](int, off_t, int) { return off_t{0}; };
        co.read = pin_read;
        co.ioctl = bus_ioctl;
        plat_attach(&co);
        pin_init();
        pin_map_set(pin_brenk_co_get, 1);
        gpio_linux_init(PIN_GRP_GPIO);
        ASSERT_TRUE(link_start(link));
        ASSERT_EQ(phDal4Nfc_Config(link, {.wait_behind_57 = true, .time_gap_us = 0}), NFCSTATUS_SUCCESS);
        EXPECT_EQ(phDal4Nfc_Register(link, {}, &ops), NFCSTATUS_INVALID_PARAMETER);
        const link_callbacks callbacks = {
            .context = this,
            .receive_complete =
                [](void* p, std::span<const std::uint8_t> bytes) {
                    static_cast<Pn65Link*>(p)->reply.assign(bytes.begin(), bytes.end());
                    static_cast<Pn65Link*>(p)->told += 1;
                },
            .exception = [](void* p) { static_cast<Pn65Link*>(p)->told += 100; },
        };
        ASSERT_EQ(phDal4Nfc_Register(link, callbacks, &ops), NFCSTATUS_SUCCESS);
    }

    void TearDown() override
    {
        link_rest(link);
        link_stop(link);
    }

    // Reads `size` bytes: 1 for a reply, 100 for an exception.
    int read(std::size_t size, std::deque<int> bytes)
    {
        given = std::move(bytes);
        readings = told = 0;
        EXPECT_EQ(ops->read(link, size), NFCSTATUS_PENDING);
        for (int i = 0; i < 5000 && told == 0; i++)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return told;
    }
};

using bytes = std::vector<std::uint8_t>;

TEST_F(Pn65Link, AByteThatSaysNotReadyIsReadAgainFiveTimes)
{
    ops->init(link);
    EXPECT_EQ(read(1, {0x57, 0x57, 0x57, 0x57, 0x57, 0x12}), 1);
    EXPECT_EQ(reply, bytes{0x12});
    EXPECT_EQ(readings, 6);
    EXPECT_EQ(read(1, {0x57, 0x57, 0x57, 0x57, 0x57, 0x57, 0x12}), 100);
    EXPECT_EQ(readings, 6);
    // A reading that failed is no byte, also behind one that wasn't ready.
    EXPECT_EQ(read(1, {fails}), 1);
    EXPECT_EQ(reply, bytes{});
    EXPECT_EQ(read(1, {0x57, fails}), 1);
    EXPECT_EQ(reply, bytes{});
    // Two bytes never say so, and nobody asks where the configuration doesn't want it.
    EXPECT_EQ(read(2, {0x57}), 1);
    EXPECT_EQ(readings, 1);
    link.config.wait_behind_57 = false;
    EXPECT_EQ(read(1, {0x57}), 1);
    EXPECT_EQ(reply, bytes{0x57});
}

TEST_F(Pn65Link, WhatItsOperationsRefuse)
{
    const bytes frame = {1, 0, 0};
    EXPECT_EQ(ops->write(link, frame), NFCSTATUS_NOT_INITIALISED);
    EXPECT_EQ(ops->read(link, 3), NFCSTATUS_NOT_INITIALISED);
    ops->init(link);
    EXPECT_EQ(ops->write(link, {}), NFCSTATUS_INVALID_PARAMETER);
    EXPECT_EQ(ops->read(link, 0), NFCSTATUS_SUCCESS);
    link.writing = true;
    EXPECT_EQ(ops->write(link, frame), NFCSTATUS_BUSY);
    ops->shutdown(link);
    EXPECT_EQ(ops->write(link, frame), NFCSTATUS_NOT_INITIALISED);
    EXPECT_EQ(ops->unregister(link), NFCSTATUS_SUCCESS);
    EXPECT_EQ(ops->unregister(link), NFCSTATUS_INVALID_DEVICE);
    message m = {MSG_DEFERRED, nullptr, 0};
    EXPECT_EQ(phDal4Nfc_msgsnd(link.queue, &m, sizeof m - 1), -1);
    EXPECT_EQ(phDal4Nfc_msgrcv(link.queue, &m, sizeof m + 1), -1);
}

TEST_F(Pn65Link, SixteenTimersAndNoMore)
{
    int calls = 0;
    const timer_cb count = [](std::uint32_t, void* p) { *static_cast<int*>(p) += 1; };
    for (std::uint32_t id = 0; id < 16; id++)
        ASSERT_EQ(phOsalNfc_Timer_Create(), id);
    EXPECT_EQ(phOsalNfc_Timer_Create(), TIMER_NONE);
    EXPECT_FALSE(phOsalNfc_Timer_Start(16, 1, count, &calls));
    EXPECT_TRUE(phOsalNfc_Timer_Start(3, 50, count, &calls));
    EXPECT_TRUE(phOsalNfc_Timer_Start(4, 0, count, &calls)) << "no time at all is a nanosecond";
    EXPECT_TRUE(phOsalNfc_Timer_Start(5, 16384, count, &calls));
    phOsalNfc_Timer_Stop(3);
    plat_fake_advance_us(1000);
    EXPECT_EQ(calls, 1);
    plat_fake_advance_us(16382000);
    EXPECT_EQ(calls, 1) << "a single shot, and the stopped one none";
    plat_fake_advance_us(1000);
    EXPECT_EQ(calls, 2);
    phOsalNfc_Timer_Delete(7);
    EXPECT_FALSE(phOsalNfc_Timer_Start(7, 1, count, &calls));
    EXPECT_EQ(phOsalNfc_Timer_Create(), 7u);
    for (std::uint32_t id = 0; id < 16; id++)
        phOsalNfc_Timer_Delete(id);
}

} // namespace
