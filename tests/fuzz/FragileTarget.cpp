// Fails on inputs that hold an exclamation mark, and in another way on those that hold a question mark.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (std::find(data, data + size, '!') != data + size)
        std::abort();
    if (std::find(data, data + size, '?') != data + size)
        throw std::runtime_error("a question");
    return 0;
}
