// The driver on a client and a display of the tests' own, for both memory modes and both ways to turn a
// picture. What may be taken for another thing differs: a buffer's address, its handle, the id and the base
// of its memory.
#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "camera_durnspire/camera_durnspire.h"
#include "camera_durnspire_qualcomm/camera_durnspire_qualcomm.h"
#include "unit/camera/camera_desk.h"
#include "unit/display/panel_fake.h"
#include "unit/plat_fake.h"

namespace {

using word = std::uintptr_t;

constexpr std::uint32_t width = 64, height = 48, bytes_of_frame = width * height * 3 / 2;
constexpr camconf_sizeconfig size_of_frames = {0, width, height, 0};

struct frame_record {
    word w[18];
};
using frame_fn = void (*)(frame_record frame);

constexpr std::size_t lead = 64; // bytes of a memory before its first buffer

struct shared_memory {
    std::uint32_t kind;
    std::vector<std::uint8_t> bytes, by_handle;

    word base() { return reinterpret_cast<word>(bytes.data()); }
    word handle() { return reinterpret_cast<word>(by_handle.data()); }
};

struct request {
    unsigned long number;
    std::vector<std::uint32_t> words;
};

constexpr unsigned long overlay_set = 0xC1506D87, overlay_play = 0x40686D89;
constexpr unsigned long rotator_start = 0xC0445201, rotator_rotate = 0x40685202, rotator_finish = 0x40045203;
constexpr int rotator_fd = 1000001;
constexpr std::uint32_t session = 33;

std::map<word, shared_memory> memories; // by id
const word* callbacks;
word released; // data of the frame that went back last
std::vector<request> requests;
unsigned long refused;           // by the display and its rotator
int rotators;                    // open ones
std::function<void()> meanwhile; // what the client's threads do while the driver waits
plat_callouts panel;

std::pair<const word, shared_memory>& memory_of(std::uint32_t kind)
{
    for (auto& entry : memories)
        if (entry.second.kind == kind)
            return entry;
    static std::pair<const word, shared_memory> none;
    ADD_FAILURE() << "no memory of kind " << kind;
    return none;
}

// Calls back, by the place in the table, with a frame in the first buffer of a memory.
void call_back(std::size_t place, std::uint32_t kind)
{
    frame_record frame = {};
    frame.w[9] = memory_of(kind).second.base() + lead;
    frame.w[11] = 700 + kind;
    reinterpret_cast<frame_fn>(callbacks[place])(frame);
}

template <typename Fn>
word address(Fn fn)
{
    return reinterpret_cast<word>(fn);
}

word* client_create()
{
    static word operations[36], client[4] = {0, 0, address(operations), 0};
    operations[6] = address(+[](word, std::uint32_t, std::uint32_t, const word* table, std::uint32_t) {
        callbacks = table;
        return 0;
    });
    operations[8] = address(+[](word, std::uint32_t, std::uint32_t* record) {
        record[2] = 2;
        record[3] = bytes_of_frame;
        return 0;
    });
    operations[11] = address(+[](word, frame_record frame) {
        released = frame.w[9];
        return 0;
    });
    for (const std::size_t at : {7, 10, 20})
        operations[at] = address(+[](word) { return 0; });
    for (const std::size_t at : {9, 15, 17})
        operations[at] = address(+[](word, std::uint16_t, const word* const*) { return 0; });
    operations[34] = address(+[](word, void*) { return 0; });
    return client;
}

int memory_alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count, std::uint32_t, word* heap)
{
    static word id = 500;
    shared_memory& m = memories[++id];
    m = {kind, std::vector<std::uint8_t>(lead + size * count), std::vector<std::uint8_t>(size * count)};
    for (std::size_t i = 0; i < count; i++) {
        heap[3 + 6 * i + 1] = m.base() + lead + i * size;
        heap[3 + 6 * i + 3] = m.handle() + i * size;
    }
    heap[228] = id;
    heap[229] = m.base();
    return 0;
}

int memory_free(word* heap)
{
    return memories.erase(heap[228]) == 1 ? 0 : -1;
}

void* find_symbol(void*, const char* name)
{
    const std::map<std::string, word> symbols = {{"Drns_Client_Create", address(client_create)},
                                                 {"Drns_Util_AllocSharedMemory", address(memory_alloc)},
                                                 {"Drns_Util_FreeSharedMemory", address(memory_free)}};
    return reinterpret_cast<void*>(symbols.at(name));
}

int display_ioctl(int fd, unsigned long number, void* arg)
{
    if (fd != rotator_fd && (number >> 8 & 0xFF) != 'm')
        return panel.ioctl(fd, number, arg);
    std::vector<std::uint32_t> words((number >> 16 & 0x3FFF) / 4);
    std::memcpy(words.data(), arg, words.size() * 4);
    requests.push_back({number, words});
    if (number == refused)
        return -1;
    if (number == rotator_start)
        std::memcpy(arg, &session, sizeof session);
    return 0;
}

std::vector<unsigned long> numbers()
{
    std::vector<unsigned long> list;
    for (const request& r : requests)
        list.push_back(r.number);
    return list;
}

// The driver with its camera started, as the product's two words say.
struct driver_desk {
    camera_desk desk;

    explicit driver_desk(const camconf_mem_config& config)
    {
        panel_fake_start({.width = 100, .height = 100});
        panel = plat_fake_co;
        plat_fake_co.open = [](const char* path, int flags, mode_t mode) {
            if (std::strcmp(path, "/dev/msm_rotator") != 0)
                return panel.open(path, flags, mode);
            rotators++;
            return rotator_fd;
        };
        plat_fake_co.close = [](int fd) {
            rotators -= fd == rotator_fd;
            return fd == rotator_fd ? 0 : panel.close(fd);
        };
        plat_fake_co.ioctl = display_ioctl;
        plat_fake_co.dlopen = [](const char*, int) -> void* { return &panel; };
        plat_fake_co.dlsym = find_symbol;
        plat_fake_co.cond_wait = [](std::condition_variable*, std::unique_lock<std::mutex>* p_lock,
                                    const timespec*) {
            p_lock->unlock();
            meanwhile();
            p_lock->lock();
            return 0;
        };
        camconf_set_mem_config(config);
        camera_durnspire_init();
        camera_durnspire_qualcomm_init();
        camera_stop();
        EXPECT_EQ(camera_start(1), 1);
    }
    ~driver_desk()
    {
        refused = 0;
        EXPECT_EQ(camera_stop(), 1);
        EXPECT_EQ(memories.size(), 0u) << "all memory went back";
        EXPECT_EQ(rotators, 0);
    }
    // The requests that a frame makes, viewfinder turned by `rotation` beside the mounting's quarter turn.
    void show_frame(std::int32_t rotation)
    {
        EXPECT_EQ(camera_start_viewfinder(size_of_frames, rotation), 1);
        requests.clear();
        released = 0;
        call_back(1, 0);
        EXPECT_EQ(released, memory_of(0).second.base() + lead);
    }
};

// The display's flags for the codes from 2 on, which is how the desk's camera is mounted.
constexpr std::uint32_t flags[] = {4, 5, 3, 2, 7, 6, 0, 1};

} // namespace

TEST(Driver, TheRotatorTurnsWhereTheProductHasIt)
{
    driver_desk d({.memory_mode = 0, .rotation_mode = 0});
    EXPECT_EQ(rotators, 1);
    for (std::int32_t rotation = 0; rotation < 8; rotation++) {
        d.show_frame(rotation);
        const bool first_of_shape = rotation % 2 == 0;
        std::vector<unsigned long> expected = {rotator_start, rotator_rotate, rotator_finish, overlay_play};
        if (first_of_shape)
            expected.insert(expected.begin(), overlay_set);
        ASSERT_EQ(numbers(), expected) << rotation;
        if (first_of_shape)
            requests.erase(requests.begin());
        const bool turned = rotation / 2 % 2 == 0;
        const std::uint32_t w = turned ? height : width, h = turned ? width : height;
        const std::vector<std::uint32_t>& start = requests[0].words;
        EXPECT_EQ((std::vector(start.begin() + 1, start.begin() + 7)),
                  (std::vector<std::uint32_t>{width, height, 2, w, h, 2}));
        EXPECT_EQ(start[13], flags[rotation]) << rotation;
        // session; source: where the frame lies in its memory; destination
        const std::vector<std::uint32_t>& rotate = requests[1].words;
        EXPECT_EQ(std::tuple(rotate[0], rotate[1], rotate[2], rotate[7], rotate[8]),
                  std::tuple(session, lead, memory_of(0).first, 0u, memory_of(9).first));
        EXPECT_EQ(requests[2].words[0], session);
        EXPECT_EQ(requests[3].words[2], memory_of(9).first) << "what is shown";
    }
    // A step that fails shows nothing, and ends the session all the same
    refused = rotator_start;
    d.show_frame(0);
    EXPECT_EQ(numbers(), (std::vector{overlay_set, rotator_start}));
    refused = rotator_rotate;
    d.show_frame(0);
    EXPECT_EQ(numbers(), (std::vector{rotator_start, rotator_rotate, rotator_finish}));
    refused = rotator_finish;
    d.show_frame(0);
    EXPECT_EQ(numbers(), (std::vector{rotator_start, rotator_rotate, rotator_finish}));
}

TEST(Driver, TheOverlayTurnsWhereTheProductHasThat)
{
    driver_desk d({.memory_mode = 1, .rotation_mode = 1});
    EXPECT_EQ(rotators, 0);
    for (std::int32_t rotation = 0; rotation < 8; rotation++) {
        d.show_frame(rotation);
        if (rotation % 2 == 0)
            requests.erase(requests.begin()); // the shape is another
        ASSERT_EQ(numbers(), (std::vector{overlay_set, overlay_play, overlay_play})) << rotation;
        EXPECT_EQ(requests[0].words[16], flags[rotation] | 128) << rotation;
        EXPECT_EQ(requests[1].words[1], lead);
        EXPECT_EQ(requests[1].words[2], 700u) << "the handle that came with the frame";
        EXPECT_EQ(requests[1].words[21], memory_of(9).first);
    }
}

TEST(Driver, PicturesLieWhereTheMemoryModeSays)
{
    for (const std::uint32_t mode : {0u, 1u}) {
        driver_desk d({.memory_mode = mode, .rotation_mode = 1});
        const camera_callouts& co = *camera_get_platform_callout();
        const auto lies_in = [mode](const std::uint8_t* p, std::uint32_t kind) {
            return std::any_of(memories.begin(), memories.end(), [&](auto& entry) {
                shared_memory& m = entry.second;
                return m.kind == kind && reinterpret_cast<word>(p) == (mode == 1 ? m.handle() : m.base());
            });
        };
        camera_snapshot s = {0, width, height, nullptr, 0};
        meanwhile = [] {
            call_back(3, 2);
            call_back(4, 3);
        };
        EXPECT_EQ(co.take_snapshot(1, &s), 1);
        EXPECT_TRUE(lies_in(s.buffer, 2)) << "the thumbnail";
        EXPECT_EQ(s.nbr_of_bytes, bytes_of_frame);
        EXPECT_EQ(co.release_snapshot(&s), 1);
        EXPECT_EQ(s.buffer, nullptr);
        EXPECT_EQ(camera_start_viewfinder(size_of_frames, 0), 1);
        meanwhile = [] {
            std::vector<std::uint8_t>& bytes = memory_of(0).second.bytes;
            for (std::size_t i = 0; i < bytes_of_frame; i++)
                bytes[lead + i] = static_cast<std::uint8_t>(i * 7);
            call_back(1, 0);
        };
        EXPECT_EQ(co.grab_viewfinder_frame(&s), 1);
        EXPECT_TRUE(lies_in(s.buffer, 9));
        ASSERT_EQ(s.nbr_of_bytes, bytes_of_frame);
        for (std::size_t i = 0; i < bytes_of_frame; i++)
            ASSERT_EQ(s.buffer[i], static_cast<std::uint8_t>(i * 7)) << i;
        EXPECT_EQ(co.release_snapshot(&s), 1);
    }
}
