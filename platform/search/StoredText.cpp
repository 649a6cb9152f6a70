#include "platform/search/StoredText.h"

#include <zstd.h>

#include <memory>
#include <stdexcept>

namespace {

constexpr char kPlain = '\0';
constexpr char kZstd = '\1';
constexpr std::size_t kShortestWorthPacking = 64;
// Beyond the first levels the time grows faster than the files shrink.
constexpr int kLevel = 1;

struct ContextFreer {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }

    void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
};

} // namespace

std::string StoredText::pack(std::string_view text)
{
    std::string record(1, kPlain);
    if (text.size() >= kShortestWorthPacking) {
        thread_local const std::unique_ptr<ZSTD_CCtx, ContextFreer> context(ZSTD_createCCtx());
        record.resize(1 + ZSTD_compressBound(text.size()));
        const auto length = ZSTD_compressCCtx(context.get(), record.data() + 1, record.size() - 1,
                                              text.data(), text.size(), kLevel);
        if (!ZSTD_isError(length) && length < text.size()) {
            record[0] = kZstd;
            record.resize(1 + length);
            return record;
        }
    }
    record.assign(1, kPlain);
    return record.append(text);
}

std::optional<std::string> StoredText::unpack(std::string_view record)
{
    if (record.empty())
        return std::nullopt;
    const auto body = record.substr(1);
    if (record[0] == kPlain)
        return std::string(body);
    if (record[0] != kZstd)
        return std::nullopt;
    const auto length = ZSTD_getFrameContentSize(body.data(), body.size());
    if (length == ZSTD_CONTENTSIZE_UNKNOWN || length == ZSTD_CONTENTSIZE_ERROR || length > kMaximumByteCount)
        return std::nullopt;
    thread_local const std::unique_ptr<ZSTD_DCtx, ContextFreer> context(ZSTD_createDCtx());
    std::string text(length, '\0');
    const auto written
        = ZSTD_decompressDCtx(context.get(), text.data(), text.size(), body.data(), body.size());
    if (ZSTD_isError(written) || written != length)
        return std::nullopt;
    return text;
}
