#include "core/settings.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::bytesOf;
using test::putBytes;
using test::TemporaryFolder;

const std::string kFolder = "/home/ana/zolt";

std::string defaultFile() {
    return "FrstTime=0\r\nLanguage=EN\r\nDefltDir=/home/ana/zolt\r\nDefltSmb=/home/ana/zolt/Default.zls\r\n"
           "DfDirCnv=/home/ana/zolt\r\nDfDirPdf=/home/ana/zolt\r\nDfDirFHP=/home/ana/zolt\r\n"
           "DfDirIHa=/home/ana/zolt\r\nDfDirIGr=/home/ana/zolt\r\nDfDirIPC=/home/ana/zolt\r\n"
           "DfDirPrN=/home/ana/zolt\r\nTFntName=ZOLT\r\nTFntSize=10\r\nTFntColr=-2147483640\r\n"
           "TFntBold=False\r\nTFntItal=False\r\nTFntUndl=False\r\nTFntStrT=False\r\nTFntBckC=16777215\r\n"
           "CharTool=3\r\nChrToolX=1000\r\nChrToolY=1000\r\nChrTbExi=0\r\nChrTbPoX=1000\r\nChrTbPoY=1000\r\n"
           "ChrTbFnt=ZOLT\r\nTxtWWrap=1\r\nPgStpTop=1440\r\nPgStpBot=1440\r\nPgStpLft=1728\r\nPgStpRgt="
           "1728\r\n"
           "PgStpOrn=1\r\nQuestion=1\r\n";
}

/// The default file with one of its pieces replaced.
std::string changed(const std::string &piece, const std::string &by) {
    std::string file = defaultFile();
    const std::size_t place = file.find(piece);
    EXPECT_NE(place, std::string::npos) << piece;
    return file.replace(place, piece.size(), by);
}

TEST(SettingsFile, HoldsTheDefaultsInTheirOrder) {
    EXPECT_EQ(fileFromSettings(defaultSettings(kFolder)), defaultFile());
    EXPECT_EQ(settingsFromFile(defaultFile()), defaultSettings(kFolder));
}

TEST(SettingsFile, CountsPlacesAndNotKeys) {
    EXPECT_EQ(settingsFromFile(changed("Language=EN", "  \"?????????PT\""))->Language, "PT");
    EXPECT_EQ(settingsFromFile(changed("Language=EN", "Lang"))->Language, "");
    // Another platform's line ends, and a last line without any.
    std::string file = defaultFile();
    std::erase(file, '\r');
    file.pop_back();
    EXPECT_EQ(settingsFromFile(file), defaultSettings(kFolder));
}

TEST(SettingsFile, ReadsNumbersAsTheirFieldsAsk) {
    const struct {
        std::string value;
        /// The size read, or nothing if the file is damaged.
        std::optional<int> size;
        /// The margin read from the same text.
        std::optional<int> margin;
    } cases[] = {{"12", 12, 12},        {" -7 ", -7, -7},   {"+9", 9, 9},     {"9.75", 10, 10},
                 {"11 points", 11, {}}, {"", 0, {}},        {"large", 0, {}}, {"-", 0, {}},
                 {"inf", 0, {}},        {"nan", 0, {}},     {"+-3", 0, {}},   {"32767", 32767, 32767},
                 {"32768", {}, {}},     {"-32769", {}, {}}, {"1e99", {}, {}}};
    for (const auto &one : cases) {
        const auto withSize = settingsFromFile(changed("TFntSize=10", "TFntSize=" + one.value));
        EXPECT_EQ(withSize ? std::optional<int>(withSize->TFntSize) : std::nullopt, one.size) << one.value;
        const auto withMargin = settingsFromFile(changed("PgStpTop=1440", "PgStpTop=" + one.value));
        EXPECT_EQ(withMargin ? std::optional<int>(withMargin->PgStpTop) : std::nullopt, one.margin)
            << one.value;
    }
}

TEST(SettingsFile, WritesColoursInPlainDecimal) {
    EXPECT_EQ(settingsFromFile(changed("=16777215", "= 0255 (red)"))->TFntBckC, "255");
    EXPECT_EQ(settingsFromFile(changed("=16777215", "=1.5E3"))->TFntBckC, "1500");
    EXPECT_EQ(settingsFromFile(changed("=16777215", "=white"))->TFntBckC, "0");
    EXPECT_FALSE(settingsFromFile(changed("=16777215", "=4294967295")));
}

TEST(SettingsFile, LetsFieldsSlideBehindAComma) {
    // The rest of the language's line becomes the folder, and a number then meets a text.
    EXPECT_FALSE(settingsFromFile(changed("Language=EN", "Language=EN,DefltDir=/b")));
    // Only texts stand between the comma and the line that was left out.
    const auto slid = settingsFromFile(changed("TFntName=ZOLT\r\nTFntSize=10", "TFntName=Two, TFntSize=11"));
    ASSERT_TRUE(slid);
    EXPECT_EQ(slid->TFntName, "Two");
    EXPECT_EQ(slid->TFntSize, 11);
    EXPECT_EQ(slid->TFntColr, "-2147483640");
}

TEST(SettingsFile, IsDamagedWhenCutAtAnyLine) {
    const std::string file = defaultFile();
    for (std::size_t end = 0; end != std::string::npos && end + 2 < file.size();
         end = file.find("\r\n", end + 2))
        EXPECT_FALSE(settingsFromFile(std::string_view(file).substr(0, end))) << end;
}

TEST(ReadSettings, WritesTheDefaultsOverAFileThatFails) {
    const TemporaryFolder folder;
    const std::string path = folder.file("ZOLT.ini");
    for (const std::string &damaged :
         {std::string(), std::string("FrstTime=x\r\n"), std::string(1 << 21, ' ')}) {
        putBytes(path, damaged);
        EXPECT_EQ(readSettings(path, kFolder), defaultSettings(kFolder));
        EXPECT_EQ(bytesOf(path), defaultFile());
    }
    std::filesystem::remove(path);
    EXPECT_EQ(readSettings(path, kFolder), defaultSettings(kFolder));
    EXPECT_EQ(bytesOf(path), defaultFile());
    EXPECT_EQ(readSettings(folder.file("missing/ZOLT.ini"), kFolder), defaultSettings(kFolder));
}

TEST(ReadSettings, LeavesASoundFileAndAnUnsoundPaneAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.file("ZOLT.ini");
    const std::string file = changed("TxtWWrap=1", "TxtWWrap=3");
    putBytes(path, file);
    const Settings settings = readSettings(path, kFolder);
    EXPECT_EQ(settings.TxtWWrap, 3);
    EXPECT_FALSE(areSound(settings));
    EXPECT_EQ(bytesOf(path), file);
}

TEST(WriteSettings, LeavesTheFilesTextWhereOneCannotStandInIt) {
    const TemporaryFolder folder;
    const std::string path = folder.file("ZOLT.ini");
    Settings settings = readSettings(path, kFolder);
    settings.DfDirPdf = "/before/";
    settings.TFntSize = 14;
    EXPECT_EQ(writeSettings(path, settings), "");
    for (const char *unfit : {"/a,b/", "/a\rb/", "/a\nb/", ","}) {
        Settings changed = settings;
        changed.DfDirPdf = changed.TFntName = unfit;
        changed.Question = 2;
        EXPECT_EQ(writeSettings(path, changed), "");
        changed.DfDirPdf = "/before/";
        changed.TFntName = "ZOLT";
        EXPECT_EQ(readSettings(path, kFolder), changed);
    }
}

TEST(WriteSettings, SurviveInAProgramFolderThatCannotStandInTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.file("ZOLT.ini");
    Settings settings = readSettings(path, "/a,b");
    EXPECT_EQ(settings, defaultSettings("/a,b"));
    settings.DfDirPdf = "/pdf/";
    settings.CharTool = 0;
    EXPECT_EQ(writeSettings(path, settings), "");
    EXPECT_EQ(readSettings(path, "/a,b"), settings);
    EXPECT_EQ(settingsFromFile(bytesOf(path))->DefltDir, "");
    // An empty text is one like others where its default can stand.
    putBytes(path, changed("DefltDir=/home/ana/zolt", "DefltDir="));
    EXPECT_EQ(readSettings(path, kFolder).DefltDir, "");
}

} // namespace
} // namespace zolt
