#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSLog.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

NSAny decodeOpenly(std::string_view data)
{
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data, foundationClasses());
    if (!unarchiver)
        return nullptr;
    unarchiver->setRequiresSecureCoding(false);
    return unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey);
}

} // namespace

/// What was read can be written, and reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const NSLogCapture quiet([](std::string_view /*line*/) {});
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    (void)NSKeyedUnarchiver::unarchivedObjectOfClasses({&NSArrayClass, &NSStringClass}, bytes,
                                                       foundationClasses());
    const auto value = decodeOpenly(bytes);
    if (!value)
        return 0;
    const auto written = NSKeyedArchiver::archivedDataWithRootObject(value, true);
    // Where two readings differ there is a real that is no number, which equals nothing.
    if (!written || (decodeOpenly(bytes) == value && decodeOpenly(written->bytes) != value))
        std::abort();
    return 0;
}
