#include "desktop/associations.h"
#include "desktop/key_file.h"
#include "desktop/registration.h"
#include "support/other_programs.h"
#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace zolt::desktop {
namespace {

using test::asNobody;
using test::bytesOf;
using test::hasProgram;
using test::outputOf;
using test::putBytes;
using test::TemporaryFolder;

/// A user and a system of the test's own.
class Associations : public testing::Test {
protected:
    Associations() {
        m_folders.data = {m_root.file("home"), m_root.file("system")};
        m_folders.config = {m_root.file("config")};
        m_folders.desktops = {"lxde"};
        m_folders.programs = {m_root.file("bin")};
    }

    std::string path(const std::string &name) { return m_root.file(name); }
    void put(const std::string &name, std::string_view bytes) {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        putBytes(path(name), bytes);
    }
    std::string program(const std::string &name) {
        put(name, "#!/bin/sh\n");
        std::filesystem::permissions(path(name), std::filesystem::perms::all);
        return path(name);
    }
    /// An entry of the system, indexed for a type.
    void entry(const std::string &name, const std::string &type) {
        program("bin/" + name);
        put("system/applications/" + name + ".desktop",
            "[Desktop Entry]\nType=Application\nExec=" + name + " %f\n");
        m_cache =
            withValue(m_cache, "MIME Cache", type, valueOf(m_cache, "MIME Cache", type) + name + ".desktop;");
        put("system/applications/mimeinfo.cache", m_cache);
    }
    std::string programFor(const std::string &extension) { return desktop::programFor(extension, m_folders); }
    std::string name(const std::string &extension) {
        const std::string found = programFor(extension);
        return found.substr(found.rfind('/') + 1);
    }
    std::string registerZlt(const std::string &program) {
        return registerType("zlt", program, "ZOLT Text Format", m_folders);
    }
    /// What the desktop's own programs find, run with the test's folders.
    std::string asDesktop(const std::string &command) {
        return outputOf("HOME='" + path("") + "' XDG_CURRENT_DESKTOP= XDG_DATA_HOME='" + m_folders.data[0] +
                        "' XDG_DATA_DIRS='" + m_folders.data[1] + "' XDG_CONFIG_HOME='" +
                        m_folders.config[0] + "' XDG_CONFIG_DIRS=/nowhere PATH=\"" + path("bin") +
                        ":$PATH\" " + command + " 2>&1");
    }
    void refresh() { EXPECT_EQ(asDesktop("update-mime-database '" + m_folders.data[0] + "/mime'"), ""); }

    TemporaryFolder m_root;
    Folders m_folders;
    std::string m_cache;
};

TEST_F(Associations, AreFoundInTheOrderOfTheDesktop) {
    put("system/mime/globs2", "50:text/x-a:*.a\n50:application/b:*.b\n");
    put("system/mime/subclasses", "application/b application/base\n");
    EXPECT_EQ(programFor("a"), "");
    entry("bytes", "application/octet-stream");
    EXPECT_EQ(name("b"), "bytes");
    EXPECT_EQ(programFor("unknown"), "");
    entry("plain", "text/plain");
    EXPECT_EQ(name(".A"), "plain");
    entry("base", "application/base");
    EXPECT_EQ(name("b"), "base");
    entry("first", "text/x-a");
    entry("second", "text/x-a");
    EXPECT_EQ(name("a"), "first");
    put("config/mimeapps.list", "[Added Associations]\ntext/x-a=gone.desktop;second.desktop;\n");
    EXPECT_EQ(name("a"), "second");
    put("config/mimeapps.list", "[Removed Associations]\ntext/x-a=first.desktop;\n");
    EXPECT_EQ(name("a"), "second");
    put("system/applications/defaults.list", "[Default Applications]\ntext/x-a=plain.desktop\n");
    EXPECT_EQ(name("a"), "plain");
    put("home/applications/mimeapps.list", "[Default Applications]\ntext/x-a=base.desktop;\n");
    EXPECT_EQ(name("a"), "base");
    put("config/mimeapps.list", "[Default Applications]\ntext/x-a=-gone.desktop;second.desktop;\n");
    EXPECT_EQ(name("a"), "second");
    put("config/lxde-mimeapps.list", "[Default Applications]\ntext/x-a=first.desktop;\n");
    EXPECT_EQ(name("a"), "first");
    // The user's entry stands for the system's of that name; one that can't be used, for none.
    put("home/applications/first.desktop", "[Desktop Entry]\nExec=\"" + program("a b/own") + "\" %f\n");
    EXPECT_EQ(programFor("a"), path("a b/own"));
    put("home/applications/first.desktop", "[Desktop Entry]\nExec=first\nHidden=true\n");
    EXPECT_EQ(name("a"), "second");
    std::filesystem::permissions(path("bin/second"), std::filesystem::perms::owner_read);
    EXPECT_EQ(name("a"), "base");
}

TEST_F(Associations, OnceRegisteredOpenTheProgram) {
    if (!hasProgram("update-mime-database"))
        GTEST_SKIP() << "update-mime-database isn't installed";
    put("config/mimeapps.list", "# mine\n[Default Applications]\ntext/html=web.desktop\n"
                                "application/x-zolt-text=other.desktop;\n\n[Removed Associations]\n"
                                "application/x-zolt-text=zolt.desktop;third.desktop;\n");
    for (const char *place : {"bin/zolt", "a b/zolt", "R&D <1>/it's \"z\" $HOME `x`/zolt", "100% %f/zolt"}) {
        const std::string own = program(place);
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(registerZlt(own), "");
            refresh();
            EXPECT_EQ(programFor("zlt"), own);
            EXPECT_EQ(programFor("ZLT"), own);
        }
        EXPECT_EQ(bytesOf(path("config/mimeapps.list")),
                  "# mine\n[Default Applications]\ntext/html=web.desktop\n"
                  "application/x-zolt-text=zolt.desktop;other.desktop;\n\n[Removed Associations]\n"
                  "application/x-zolt-text=third.desktop;\n");
        put("name.zlt", "text");
        // GLib doesn't take a doubled % for one when it looks whether the program is there.
        if (hasProgram("gio") && own.find('%') == std::string::npos) {
            const std::string answer = asDesktop("gio mime application/x-zolt-text");
            EXPECT_NE(answer.find("zolt.desktop"), std::string::npos) << answer;
            const std::string kind =
                asDesktop("gio info -a standard::content-type '" + path("name.zlt") + "'");
            EXPECT_NE(kind.find("application/x-zolt-text"), std::string::npos) << kind;
        }
    }
    EXPECT_EQ(programFor("zlg"), "");
    EXPECT_NE(bytesOf(path("home/applications/zolt.desktop")).find("Name=ZOLT\n"), std::string::npos);
}

TEST_F(Associations, TakeAnyExtensionFromWhatHadIt) {
    if (!hasProgram("update-mime-database"))
        GTEST_SKIP() << "update-mime-database isn't installed";
    put("system/mime/globs2", "80:text/html:*.htm\n50:text/plain:*.txt\n");
    entry("web", "text/html");
    const std::string own = program("bin/zolt");
    for (const char *extension : {"htm", "TXT", "", "a*", "[x]", "<&\"", "p%c", "é"}) {
        EXPECT_EQ(registerType(extension, own, "ZOLT Associated File", m_folders), "") << extension;
        refresh();
        EXPECT_EQ(programFor(extension), own) << extension;
        if (hasProgram("gio")) {
            put("name." + std::string(extension), "text");
            const std::string kind = asDesktop("gio info -a standard::content-type '" +
                                               path("name." + std::string(extension)) + "'");
            EXPECT_NE(kind.find("x-zolt-associated-file"), std::string::npos) << extension << kind;
        }
        registerType(extension, own, "ZOLT Associated File", m_folders); // once more, with itself there
    }
    EXPECT_EQ(programFor("abc"), "");
    // The program that had the extension can still open it.
    std::filesystem::remove(own);
    refresh();
    EXPECT_EQ(name("htm"), "web");
    program("bin/zolt");
    for (const char *extension : {"a/b", "a:b"})
        EXPECT_NE(registerType(extension, own, "ZOLT Associated File", m_folders), "");
    // Another format for the extension takes it over, in whatever case.
    EXPECT_EQ(registerType("txt", own, "ZOLT Text Format", m_folders), "");
    refresh();
    EXPECT_EQ(outputOf("grep -c 'txt$' '" + path("home/mime/globs2") + "'"), "1\n");
}

TEST_F(Associations, ChangeNothingWhereTheUserMayNotWrite) {
    const std::string own = program("bin/zolt");
    std::filesystem::permissions(path(""), std::filesystem::perms(0755));
    put("config/mimeapps.list", "[Default Applications]\n");
    std::filesystem::create_directories(path("home"));
    EXPECT_TRUE(asNobody([&] { return !registerZlt(own).empty(); }));
    EXPECT_EQ(bytesOf(path("config/mimeapps.list")), "[Default Applications]\n");
    EXPECT_TRUE(std::filesystem::is_empty(path("home")));
    // A list that isn't a file stays, and so does what isn't an entry.
    std::filesystem::create_directories(path("home/applications/zolt.desktop"));
    EXPECT_NE(registerZlt(own), "");
    m_folders.data[0].clear();
    EXPECT_NE(registerZlt(own), "");
}

TEST(FoldersOfUser, FollowTheEnvironment) {
    struct Variable {
        const char *name;
        const char *value;
        std::string before;
    } variables[] = {{"HOME", "/home/ana", {}},         {"XDG_DATA_HOME", "relative", {}},
                     {"XDG_DATA_DIRS", "/a/:b:/c", {}}, {"XDG_CONFIG_HOME", "/cfg/", {}},
                     {"XDG_CONFIG_DIRS", "", {}},       {"XDG_CURRENT_DESKTOP", "Ubuntu:GNOME", {}}};
    for (Variable &variable : variables) {
        const char *before = std::getenv(variable.name);
        variable.before = before ? before : "";
        ::setenv(variable.name, variable.value, 1);
    }
    const Folders folders = foldersOfUser();
    for (const Variable &variable : variables)
        ::setenv(variable.name, variable.before.c_str(), 1);
    EXPECT_EQ(folders.data, std::vector<std::string>({"/home/ana/.local/share", "/a", "/c"}));
    EXPECT_EQ(folders.config, std::vector<std::string>({"/cfg", "/etc/xdg"}));
    EXPECT_EQ(folders.desktops, std::vector<std::string>({"ubuntu", "gnome"}));
}

} // namespace
} // namespace zolt::desktop
