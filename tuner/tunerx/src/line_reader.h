// The lines of a text file as a caller with 128 bytes of room gets them.
#pragma once

#include <cstdio>
#include <memory>

class line_reader {
public:
    static constexpr std::size_t ROOM = 128;

    explicit line_reader(const char* path);

    bool opened() const { return file != nullptr; }

    // The next line that isn't a comment; null at the end of the file or when it can't be read on.
    const char* next();

    // Whether the end was a failure.
    bool failed() const { return file == nullptr || std::ferror(file.get()) != 0; }

private:
    struct closer {
        void operator()(FILE* p_file) const { std::fclose(p_file); }
    };
    std::unique_ptr<FILE, closer> file;
    char line[ROOM];
};
