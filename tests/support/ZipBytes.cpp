#include "tests/support/ZipBytes.h"

#include <memory>
#include <stdexcept>
#include <zip.h>

namespace {

struct SourceCloser {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};

void require(bool isDone)
{
    if (!isDone)
        throw std::runtime_error("the zip file could not be made");
}

std::string bytesOf(zip_source_t* source)
{
    require(zip_source_open(source) == 0 && zip_source_seek(source, 0, SEEK_END) == 0);
    std::string bytes(static_cast<std::size_t>(zip_source_tell(source)), '\0');
    require(zip_source_seek(source, 0, SEEK_SET) == 0);
    require(zip_source_read(source, bytes.data(), bytes.size()) == static_cast<zip_int64_t>(bytes.size()));
    require(zip_source_close(source) == 0);
    return bytes;
}

} // namespace

std::string zipOf(const std::vector<ZipMember>& members, std::string_view password)
{
    const std::unique_ptr<zip_source_t, SourceCloser> target(
        zip_source_buffer_create(nullptr, 0, 0, nullptr));
    require(target != nullptr);
    zip_source_keep(target.get());
    auto* archive = zip_open_from_source(target.get(), ZIP_TRUNCATE, nullptr);
    require(archive != nullptr);
    for (const auto& member : members) {
        auto* bytes = zip_source_buffer(archive, member.bytes.data(), member.bytes.size(), 0);
        const auto index = zip_file_add(archive, member.name.c_str(), bytes, ZIP_FL_ENC_UTF_8);
        require(index >= 0);
        const std::string secret(password);
        require(secret.empty()
                || zip_file_set_encryption(archive, static_cast<zip_uint64_t>(index), ZIP_EM_AES_256,
                                           secret.c_str())
                    == 0);
    }
    require(zip_close(archive) == 0);
    return bytesOf(target.get());
}
