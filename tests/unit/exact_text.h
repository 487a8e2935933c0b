// A text in a heap block of exactly its size, so that the address sanitizer sees one byte too many.
#pragma once

#include <cstring>
#include <memory>
#include <string_view>

inline std::unique_ptr<char[]> exact_text(std::string_view text)
{
    auto block = std::make_unique<char[]>(text.size() + 1);
    std::memcpy(block.get(), text.data(), text.size());
    return block;
}
