#include "tests/client/ServiceProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

using testing::HasSubstr;
using testing::IsSupersetOf;

std::string contentOf(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

/// The built tree, installed below a prefix that nobody knew when it was built.
class Install : public testing::Test {
public:
    Install(const Install&) = delete;
    Install& operator=(const Install&) = delete;

    /// Whatever service the programs started on demand would stay for a while.
    ~Install() override
    {
        if (const auto service = processBehindSocket(m_folder.file("corvel/indexing.sock")))
            (void)::kill(service, SIGKILL);
    }

protected:
    Install()
    {
        const auto outcome
            = run({CORVEL_CMAKE, "--install", CORVEL_BUILD_DIR, "--prefix", m_folder.file("prefix")});
        if (outcome.status != 0)
            throw std::runtime_error(outcome.output + outcome.error);
    }

    [[nodiscard]] ChildProcess::Outcome run(const std::vector<std::string>& command) const
    {
        return ChildProcess(command, m_folder.path().native(), {},
                            {"XDG_RUNTIME_DIR=" + m_folder.path().native(),
                             "PKG_CONFIG_PATH=" + installed(CORVEL_LIBRARY_DIR "/pkgconfig")})
            .wait();
    }

    [[nodiscard]] ChildProcess::Outcome shell(const std::string& command) const
    {
        return run({"/bin/sh", "-c", command});
    }

    [[nodiscard]] std::string installed(const std::string& path) const
    {
        return m_folder.file("prefix/" + path);
    }

    [[nodiscard]] std::vector<std::string> installedFiles(const std::string& folder = {}) const
    {
        std::vector<std::string> files;
        const auto top = installed(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
            if (!entry.is_directory())
                files.push_back(entry.path().lexically_relative(top).native());
        }
        return files;
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(Install, PutsEverythingWhereItBelongs)
{
    const std::string libraries = CORVEL_LIBRARY_DIR;
    const std::vector<std::string> expected{
        "bin/corvel",
        "bin/corvel-indexing",
        "include/corvel/client/IndexingClient.h",
        "include/corvel/platform/search/SKIndex.h",
        libraries + "/libcorvel.a",
        libraries + "/pkgconfig/corvel.pc",
        "share/doc/corvel/LICENSE",
        "share/doc/corvel/corvel.md",
        "share/doc/corvel/examples/host.cpp",
        "share/locale/de/LC_MESSAGES/corvel.mo",
        "share/man/man1/corvel-string.1",
        "share/mime/packages/corvel-note.xml",
        "share/thumbnailers/corvel-note.thumbnailer",
        "share/man/man1/corvel.1",
        "share/systemd/user/corvel-indexing.service",
        "share/systemd/user/corvel-indexing.socket",
    };
    EXPECT_THAT(installedFiles(), IsSupersetOf(expected));
}

TEST_F(Install, StartsTheInstalledServiceFromItsUnit)
{
    const auto unit = contentOf(installed("share/systemd/user/corvel-indexing.service"));
    EXPECT_THAT(unit,
                HasSubstr("\nExecStart=\"" + installed("bin/corvel-indexing") + "\" --idle-timeout 60\n"));
}

TEST_F(Install, KeepsTheStagingFolderOutOfTheUnit)
{
    const auto outcome
        = shell("DESTDIR='" + folder().file("stage")
                + "' '" CORVEL_CMAKE "' --install '" CORVEL_BUILD_DIR "' --prefix /opt/corvel%1");
    ASSERT_EQ(outcome.status, 0) << outcome.error;
    const auto unit
        = contentOf(folder().file("stage/opt/corvel%1/share/systemd/user/corvel-indexing.service"));
    // A per cent sign begins a specifier in a unit and is doubled to stand for itself.
    EXPECT_THAT(unit, HasSubstr("\nExecStart=\"/opt/corvel%%1/bin/corvel-indexing\" "));
}

TEST_F(Install, RunsWithTheServiceBesideTheProgram)
{
    const auto file = folder().write("harbour.txt", "lights on the water");
    EXPECT_EQ(run({installed("bin/corvel"), "create", "notes.index"}).status, 0);
    const auto indexed = run({installed("bin/corvel"), "index", "--index", "notes.index", file});
    EXPECT_EQ(indexed.status, 0) << indexed.error;
    const auto service = processBehindSocket(folder().file("corvel/indexing.sock"));
    ASSERT_NE(service, 0);
    EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(service) + "/exe").native(),
              installed("bin/corvel-indexing"));
    const auto found = run({installed("bin/corvel"), "search", "--index", "notes.index", "lights"});
    EXPECT_THAT(found.output, HasSubstr("harbour.txt"));
}

TEST_F(Install, LetsAHostBuildAgainstTheLibrary)
{
    const auto built
        = shell(CORVEL_COMPILER " -std=c++20 -o host '" + installed("share/doc/corvel/examples/host.cpp")
                + "' $(pkg-config --cflags --libs corvel)");
    ASSERT_EQ(built.status, 0) << built.error;
    const auto file = folder().write("harbour.txt", "lights on the water");
    const auto ran = shell("PATH=\"" + installed("bin") + ":$PATH\" ./host notes.index harbour.txt water");
    EXPECT_EQ(ran.status, 0) << ran.error;
    EXPECT_EQ(ran.output, file + "\n    lights on the [water]\n");
}

TEST_F(Install, HasAllThatItsHeadersInclude)
{
    std::string source;
    for (const auto& header : installedFiles("include/corvel"))
        source += "#include <" + header + ">\n";
    folder().write("headers.cpp", source);
    const auto outcome = shell(CORVEL_COMPILER " -std=c++20 -fsyntax-only -I '" + installed("include/corvel")
                               + "' headers.cpp");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(Install, NamesItsVersionToHosts)
{
    EXPECT_EQ(shell("pkg-config --modversion corvel").output, CORVEL_VERSION "\n");
}
