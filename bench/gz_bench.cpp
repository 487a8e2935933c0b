// file_compress of a log of 256 KiB against zlib alone at level 9.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <unistd.h>
#include <zlib.h>

#include "file_linux/file_linux.h"
#include "plat_linux/plat_linux.h"
#include "row.h"

namespace {

constexpr std::size_t log_bytes = 256 * 1024;
constexpr int repetitions = 15;

std::string log_text()
{
    std::mt19937 random(1);
    std::string text;
    for (unsigned ms = 0; text.size() < log_bytes; ms += random() % 100)
        text += std::to_string(ms) + " chargemon: state " + std::to_string(random() % 7) + ", " +
                std::to_string(3600 + random() % 700) + " mV, " + std::to_string(random() % 1500) + " mA\n";
    text.resize(log_bytes);
    return text;
}

double time_of(auto body)
{
    const auto from = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
}

void require(bool holds)
{
    if (!holds)
        std::exit(1);
}

} // namespace

int main()
{
    plat_attach(&plat_linux_co);
    char pattern[] = "gz_bench_XXXXXX";
    require(mkdtemp(pattern) != nullptr);
    const std::string dir = pattern, src = dir + "/log", dst = dir + "/log.gz", other = dir + "/other.gz";
    const std::string text = log_text();
    require(file_write_string(src.c_str(), text.c_str()) == 1);
    double alone = 1e18, whole = 1e18;
    for (int i = 0; i < repetitions; i++) { // in turns
        unlink(dst.c_str());
        unlink(other.c_str());
        alone = std::min(alone, time_of([&] {
                             const gzFile out = gzopen(other.c_str(), "ab9");
                             require(out != nullptr && gzwrite(out, text.data(), log_bytes) == log_bytes &&
                                     gzclose(out) == Z_OK);
                         }));
        whole = std::min(whole, time_of([&] { require(file_compress(src.c_str(), dst.c_str()) != 0); }));
    }
    for (const std::string& path : {src, dst, other})
        unlink(path.c_str());
    rmdir(dir.c_str());
    return bench_row("file_compress of a log of 256 KiB", whole, alone, 1.02);
}
