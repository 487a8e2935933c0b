// What a picture of the panel costs hvt-view before it is sent: held against copies of the panel. The rows
// that need a browser are view_page_bench's.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <sys/socket.h>
#include <thread>
#include <vector>
#include <zlib.h>

#include "bench_phone.h"
#include "row.h"
#include "view/tiles.h"
#include "view/web_client.h"

namespace {

constexpr unsigned width = 1080, height = 1920;
constexpr std::size_t panel_bytes = std::size_t{width} * height * 4;
constexpr std::size_t message_limit = 192 << 10;
constexpr int repetitions = 30;

double least_ns(const std::function<void()>& prepare, const std::function<void()>& f)
{
    double least = 1e18;
    for (int i = 0; i < repetitions; i++) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        f();
        least = std::min(
            least,
            std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count());
    }
    return least;
}

// Two pictures of one kind, no pixel alike.
struct pictures {
    std::vector<std::uint8_t> first, second;
};

pictures photo()
{
    std::mt19937 random(1);
    pictures p{std::vector<std::uint8_t>(panel_bytes), std::vector<std::uint8_t>(panel_bytes)};
    for (std::size_t i = 0; i < panel_bytes; i++) {
        p.first[i] = static_cast<std::uint8_t>(random());
        p.second[i] = static_cast<std::uint8_t>(~p.first[i]);
    }
    return p;
}

// Rectangles of one colour on another, as the menu and most patterns are.
pictures menu()
{
    pictures p{std::vector<std::uint8_t>(panel_bytes), std::vector<std::uint8_t>(panel_bytes)};
    for (unsigned y = 0; y < height; y++)
        for (unsigned x = 0; x < width; x++) {
            const std::uint8_t level = (y / 24 + x / 70) % 2 == 0 ? 0x20 : 0xE0;
            const std::size_t at = (std::size_t{y} * width + x) * 4;
            std::fill_n(&p.first[at], 4, level);
            std::fill_n(&p.second[at], 4, static_cast<std::uint8_t>(~level));
        }
    return p;
}

// A whole panel that differs in every pixel, from the phone's memory to the last message.
int run(const char* name, const pictures& p)
{
    view::tiles t;
    view::tiles_page page;
    std::vector<std::uint8_t> message, out;
    bool odd = false;
    const auto send = [&] {
        view::tiles_take(t, {(odd ? p.first : p.second).data(), width, height, 32, width * 4});
        odd = !odd;
        bool last = false;
        while (!last) {
            message.clear();
            last = view::tiles_next(t, page, 0, message_limit, message);
        }
    };
    // The bytes themselves, once, for the yardstick.
    send();
    view::tiles_page other;
    while (!view::tiles_next(t, other, 0, message_limit, out)) {
    }
    std::vector<std::uint8_t> copy(panel_bytes), packed(compressBound(out.size()));
    const double memcpy_ns = least_ns([] {}, [&] { std::memcpy(copy.data(), p.first.data(), panel_bytes); });
    const double zlib_ns = least_ns([] {},
                                    [&] {
                                        uLongf size = packed.size();
                                        compress2(packed.data(), &size, out.data(), out.size(), 1);
                                    });
    const double sent_ns = least_ns([] {}, send);
    std::printf("%s: memcpy %.2f ms, zlib -1 of the %zu bytes %.2f ms\n", name, memcpy_ns * 1e-6, out.size(),
                zlib_ns * 1e-6);
    return bench_row(name, sent_ns, 3 * memcpy_ns + zlib_ns, 1);
}

// The middle of the times of a line.
double middle_trip_ns(const bench_phone& phone)
{
    constexpr int trips = 3000;
    std::vector<double> all;
    for (int i = 0; i < trips; i++)
        all.push_back(phone.trip("case?\r"));
    std::ranges::nth_element(all, all.begin() + trips / 2);
    return all[trips / 2];
}

// Pages that show the panel, the lamps and the console, each read by a thread as a browser's would be.
struct ten_pages {
    static constexpr int count = 10;
    std::vector<std::unique_ptr<web_page>> pages;
    std::vector<std::thread> readers;

    explicit ten_pages(const view_process& v)
    {
        for (int i = 0; i < count; i++) {
            pages.push_back(std::make_unique<web_page>(v));
            pages.back()->send("want screen0,lamps,log port");
            readers.emplace_back([p = pages.back().get()] {
                while (p->picture(600'000) >= 0) {
                }
            });
        }
        std::this_thread::sleep_for(std::chrono::seconds(1)); // the first pictures are over
    }
    ~ten_pages()
    {
        for (const auto& p : pages)
            shutdown(p->fd, SHUT_RDWR);
        for (std::thread& t : readers)
            t.join();
    }
};

int console_beside_pages()
{
    constexpr int turns = 5;
    const bench_phone phone;
    const view_process v(phone.dir);
    double alone = 1e18, beside = 1e18;
    for (int i = 0; i < turns; i++) {
        alone = std::min(alone, middle_trip_ns(phone));
        const ten_pages pages(v);
        beside = std::min(beside, middle_trip_ns(phone));
    }
    return bench_row("a console's round trip beside ten pages", beside, alone, 1.05);
}

} // namespace

int main()
{
    return console_beside_pages() | run("a full panel of noise, against 3 memcpy and zlib", photo()) |
           run("a full panel of areas, against 3 memcpy and zlib", menu());
}
