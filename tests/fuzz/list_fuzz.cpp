// The lists of values behind acct and gspt: any text, in a block of exactly its size, gives items that lie in
// it, and numbers that are numbers.
#include <cmath>
#include <memory>

#include "fuzz_input.h"
#include "value_list/value_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = std::make_unique<char[]>(size + 1);
    std::memcpy(text.get(), data, size);
    static value_list list;
    value_list_cut(&list, text.get());
    require(list.count >= 0 && list.count <= VALUE_LIST_MAX);
    for (int i = 0; i < list.count; i++) {
        const char* const item = list.item[i];
        require(item >= text.get() && item + std::strlen(item) <= text.get() + size);
        require(*item != '\0' && (i + 1 == VALUE_LIST_MAX || std::strpbrk(item, ", ") == nullptr));
        float number;
        require(!value_list_float(&list, i, &number) || !std::isnan(number));
    }
    float floats[VALUE_LIST_MAX];
    int ints[VALUE_LIST_MAX];
    value_list_floats(&list, floats, list.count);
    value_list_ints(&list, ints, list.count);
    require(!value_list_ints(&list, ints, list.count + 1));
    return 0;
}
