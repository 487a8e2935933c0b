// Files, walks and gzip, on a folder of the host.
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

#include "file_linux/file_linux.h"
#include "plat_linux/plat_linux.h"
#include "runner/file_text.h"
#include "unit/plat_fake.h"

namespace {

namespace fs = std::filesystem;

struct Files : testing::Test {
    std::string dir;

    Files()
    {
        plat_fake_reset();
        std::string pattern = testing::TempDir() + "file_test_XXXXXX";
        dir = std::string(mkdtemp(pattern.data())) + "/";
    }
    ~Files() override { fs::remove_all(dir); }

    std::string at(const std::string& name) const { return dir + name; }

    void write(const std::string& name, const std::string& text) const
    {
        std::ofstream(at(name), std::ios::binary) << text;
    }

    std::string read(const std::string& name) const { return file_text(at(name)); }
    std::size_t compress() const { return file_compress(at("src").c_str(), at("dst").c_str()); }
    std::size_t uncompress() const { return file_uncompress(at("dst").c_str(), at("out").c_str()); }
};

std::string log_text(std::size_t size)
{
    std::mt19937 random(1);
    std::string text;
    while (text.size() < size)
        text += "trace " + std::to_string(random() % 5000) + ": charger state " +
                std::to_string(random() % 7) + "\n";
    text.resize(size);
    return text;
}

TEST_F(Files, AWalkGivesEveryEntryOnceAndOnlyTheNameOfTheDots)
{
    write("one", "1");
    write("two.x", "22");
    fs::create_directory(at("three"));
    for (const std::string& path :
         {dir, dir.substr(0, dir.size() - 1)}) { // with a slash at the end and without
        std::map<std::string, file_item> found;
        file_item item;
        file_find* p_hnd = file_fnd_first(path.c_str(), &item);
        ASSERT_NE(p_hnd, nullptr);
        do {
            EXPECT_TRUE(found.emplace(item.name, item).second) << item.name;
        } while (file_fnd_next(p_hnd, &item));
        EXPECT_EQ(file_fnd_close(p_hnd), 1);
        ASSERT_EQ(found.size(), 5u);
        EXPECT_EQ(found["two.x"].size, 2u);
        EXPECT_STREQ(found["two.x"].ext, "x");
        EXPECT_EQ(found["three"].attr, FILE_ATTR_DIR);
        EXPECT_EQ(found[".."].attr + found["."].attr, 0);
    }
    file_item item;
    EXPECT_EQ(file_fnd_first(at("missing").c_str(), &item), nullptr);
}

TEST_F(Files, CompressingTwiceGivesTwoMembersThatReadAsOneStream)
{
    for (const std::size_t size : {0ul, 1ul, 16383ul, 16384ul, 16385ul, 262144ul}) {
        fs::remove(at("dst"));
        write("src", log_text(size));
        const std::size_t first = compress();
        EXPECT_EQ(first, fs::file_size(at("dst")));
        const std::string once = read("dst");
        const std::size_t second = compress();
        EXPECT_EQ(second, 2 * first);
        EXPECT_EQ(read("dst"), once + once);
        EXPECT_EQ(uncompress(), 2 * size);
        EXPECT_EQ(read("out"), log_text(size) + log_text(size));
        EXPECT_EQ(read("src").size(), size); // stays
    }
}

TEST_F(Files, FailuresOfTheGzipHelpersGiveZero)
{
    EXPECT_EQ(compress(), 0u); // no source
    EXPECT_FALSE(fs::exists(at("dst")));
    write("src", "text");
    EXPECT_EQ(file_compress(at("src").c_str(), at("no/dst").c_str()), 0u);
    EXPECT_EQ(uncompress(), 0u); // no archive
    write("dst", "not compressed at all");
    EXPECT_EQ(uncompress(), 0u);
    fs::remove(at("dst"));
    write("src", log_text(100000));
    ASSERT_NE(compress(), 0u);
    fs::resize_file(at("dst"), fs::file_size(at("dst")) / 2);
    EXPECT_EQ(uncompress(), 0u); // cut short
    plat_fake_co.mmap = [](void*, std::size_t, int, int, int, off_t) { return MAP_FAILED; };
    plat_fake_co.read = [](int, void*, std::size_t) -> ssize_t { return -1; };
    EXPECT_EQ(compress(), 0u);
}

} // namespace
