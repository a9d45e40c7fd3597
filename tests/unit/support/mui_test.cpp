#include "support/clsMUI.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <map>
#include <random>
#include <vector>

#include "platform/system.h"
#include "support/clsZipString.h"
#include "support/language_form.h"
#include "support/language_text.h"
#include "testing/spelling.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

using namespace std::string_literals;

constexpr std::int32_t kItalian = 1040;

std::string paddedText(const std::string& heading, const std::string& lines = "") {
  return heading + "\r\n; " + std::string(1100, 'x') + lines;
}

std::uint64_t numberAt(const std::string& bytes, std::size_t at, std::size_t width) {
  std::uint64_t value = 0;
  for (std::size_t i = width; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

class MuiTest : public testing::Test {
 protected:
  /// Makes "Lang/<name>" of a plain text.
  void addFile(const std::string& name, const std::string& text) {
    folder.write("plain.txt", text);
    ASSERT_TRUE(mui.EncodeLangFile(folder / "plain.txt", folder / ("Lang/" + name)));
  }
  void addLanguage(std::int32_t lcid, const std::string& name, const std::string& lines = "") {
    addFile(std::to_string(lcid) + ".lng", paddedText(languageHeading(lcid, name), lines));
  }
  void useFolder() { mui.setLangFolder(folder / "Lang"); }

  MuiTest() { std::filesystem::create_directory(folder / "Lang"); }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  clsMUI mui{*files, kItalian};
};

TEST_F(MuiTest, NumberedTextsHaveKeysOfThreeDigits) {
  mui.SetText(7, "seven");
  mui.SetText(1234, "more");
  mui.SetText(-5, "below");
  EXPECT_EQ(mui.Text(7), "seven");
  EXPECT_EQ(mui.TextObj("$007"), "seven");
  EXPECT_EQ(mui.TextObj("$1234"), "more");
  EXPECT_EQ(mui.TextObj("$-005"), "below");
  EXPECT_EQ(mui.Text(8), "");
  EXPECT_EQ(mui.TextObj(""), "");
}

TEST_F(MuiTest, ValuesTakeThePlacesOfTheirMarkersInOrder) {
  mui.SetText(1, "%1 of %2, %1; %3");
  EXPECT_EQ(mui.Text(1, std::vector<std::string>{"one", "two"}), "one of two, one; %3");
  EXPECT_EQ(mui.Text(1), "%1 of %2, %1; %3");
  EXPECT_EQ(mui.Text(1, std::vector<std::string>{"%2", "two"}), "two of two, two; %3")
      << "a value that brings a later marker";
  mui.SetText(2, "%1 %10");
  EXPECT_EQ(mui.Text(2, std::vector<std::string>{"a"}), "a a0");
  EXPECT_EQ(mui.TextObj("$002", std::vector<std::string>{""}), " 0");
}

TEST_F(MuiTest, ProjectIDIsKept) {
  mui.setProjectID("console");
  EXPECT_EQ(mui.ProjectID(), "console");
}

TEST_F(MuiTest, TheFolderIsKeptWithASeparatorAndReadAtOnce) {
  addLanguage(1033, "English");
  EXPECT_EQ(mui.AvailableLangCount(), 0);
  useFolder();
  EXPECT_EQ(spelled(mui.LangFolder()), spelled(folder / "Lang/"));
  EXPECT_EQ(mui.AvailableLangCount(), 1);
  mui.setLangFolder(folder / "Lang/");
  EXPECT_EQ(mui.LangFolder(), folder / "Lang/");
}

TEST_F(MuiTest, LanguagesAreSortedByName) {
  addLanguage(1040, "Italiano");
  addLanguage(1033, "English");
  addLanguage(1031, "Deutsch");
  useFolder();
  ASSERT_EQ(mui.AvailableLangCount(), 3);
  EXPECT_EQ(mui.AvailableLangName(0), "Deutsch");
  EXPECT_EQ(mui.AvailableLangName(1), "English");
  EXPECT_EQ(mui.AvailableLangName(2), "Italiano");
  EXPECT_EQ(mui.AvailableLCID(0), 1031);
  EXPECT_EQ(mui.AvailableLCID(2), 1040);
  EXPECT_TRUE(mui.IsAvailable(1031));
  EXPECT_FALSE(mui.IsAvailable(31));
  EXPECT_FALSE(mui.IsAvailable(103));
  for (const std::int32_t beyond : {-1, 3}) {
    EXPECT_EQ(mui.AvailableLangName(beyond), "");
    EXPECT_EQ(mui.AvailableLCID(beyond), 0);
  }
}

TEST_F(MuiTest, OnlyLanguageFilesWithAHeadingAreListed) {
  addFile("a.lng", paddedText("QVLF V1.0$ 1031 $ Deutsch "));
  addFile("b.lng", paddedText("QVLF 1.0$1033$English"));
  addFile("c.lng", paddedText("QVLF V1.0$many$English"));
  addFile("d.lng", paddedText("QVLF V1.0"));
  addFile("e.txt", paddedText("QVLF V1.0$1036$Fran\xE7"
                              "ais"));
  addFile("F.LNG", paddedText("QVLF V2.5$1040$Italiano$more"));
  folder.write("Lang/g.lng", paddedText("QVLF V1.0$1043$Nederlands"));
  folder.write("Lang/h.lng", "");
  std::filesystem::create_directory(folder / "Lang/i.lng");
  useFolder();
  ASSERT_EQ(mui.AvailableLangCount(), 2);
  EXPECT_EQ(mui.AvailableLangName(0), "Deutsch");
  EXPECT_EQ(mui.AvailableLCID(0), 1031);
  EXPECT_EQ(mui.AvailableLangName(1), "Italiano");
}

TEST_F(MuiTest, AMissingFolderHasNoLanguages) {
  mui.setLangFolder(folder / "none");
  EXPECT_EQ(mui.AvailableLangCount(), 0);
  mui.setLCID(1033);
  EXPECT_EQ(mui.LCID(), 0);
}

TEST_F(MuiTest, TheWantedLanguageIsLoaded) {
  addLanguage(1031, "Deutsch", "\r\n$001=eins");
  addLanguage(1033, "English", "\r\n$001=one");
  useFolder();
  mui.setLCID(1031);
  EXPECT_EQ(mui.LCID(), 1031);
  EXPECT_EQ(mui.Text(1), "eins");
  mui.setLCID(1033);
  EXPECT_EQ(mui.LCID(), 1033);
  EXPECT_EQ(mui.Text(1), "one");
}

TEST_F(MuiTest, WithoutAFileForItEnglishIsLoaded) {
  addLanguage(1031, "Deutsch");
  addLanguage(1033, "English", "\r\n$001=one");
  useFolder();
  mui.setLCID(1036);
  EXPECT_EQ(mui.LCID(), 1033);
  EXPECT_EQ(mui.Text(1), "one");
}

TEST_F(MuiTest, BrazilFallsBackToPortugalOnly) {
  addLanguage(1033, "English");
  useFolder();
  mui.setLCID(1046);
  EXPECT_EQ(mui.LCID(), 0);
  addLanguage(2070, "Portugu\xEAs", "\r\n$001=um");
  useFolder();
  mui.setLCID(1046);
  EXPECT_EQ(mui.LCID(), 2070);
  EXPECT_EQ(mui.Text(1), "um");
}

TEST_F(MuiTest, WithoutTheFallbackNothingIsLoaded) {
  addLanguage(1031, "Deutsch", "\r\n$001=eins");
  useFolder();
  mui.setLCID(1036);
  EXPECT_EQ(mui.LCID(), 0);
  EXPECT_EQ(mui.Text(1), "");
}

TEST_F(MuiTest, ZeroIsTheUsersOwnLanguage) {
  addLanguage(1033, "English");
  addLanguage(kItalian, "Italiano");
  useFolder();
  EXPECT_EQ(mui.UserDefaultLCID(), kItalian);
  mui.setLCID(0);
  EXPECT_EQ(mui.LCID(), kItalian);
}

TEST_F(MuiTest, SelectingLooksForFilesWhenNoneAreKnown) {
  useFolder();
  addLanguage(1031, "Deutsch");
  mui.setLCID(1031);
  EXPECT_EQ(mui.LCID(), 1031);
}

TEST_F(MuiTest, WithNoFilesAtAllTheLanguageStays) {
  addLanguage(1031, "Deutsch");
  useFolder();
  mui.setLCID(1031);
  std::filesystem::remove(folder / "Lang/1031.lng");
  mui.RefreshLangList();
  mui.setLCID(1033);
  EXPECT_EQ(mui.LCID(), 1031);
}

TEST_F(MuiTest, AFileThatHasGoneLeadsToTheFallback) {
  addLanguage(1031, "Deutsch");
  addLanguage(1033, "English");
  useFolder();
  std::filesystem::remove(folder / "Lang/1031.lng");
  mui.setLCID(1031);
  EXPECT_EQ(mui.LCID(), 1033);
}

TEST_F(MuiTest, OnlyTheFirstFileOfALanguageIsTried) {
  addFile("a.lng", paddedText("QVLF V1.0$1031$A", "\r\n$001=first"));
  addFile("b.lng", paddedText("QVLF V1.0$1031$B", "\r\n$001=second"));
  useFolder();
  mui.setLCID(1031);
  EXPECT_EQ(mui.Text(1), "first");
  std::filesystem::remove(folder / "Lang/a.lng");
  mui.setLCID(1031);
  EXPECT_EQ(mui.LCID(), 0);
}

TEST_F(MuiTest, LinesAreTrimmedAndCommentsAndOthersPassedOver) {
  addLanguage(1033, "English",
              "\r\n  $001=one  \r\n ;$002=two\r\nno text\r\n\r\n$003=a=b\r\n$004=\r\n$005= five\r\n"
              "$006=up||and||down\r\n$007=\ttabs stay\t\r\n$001=last");
  useFolder();
  mui.setLCID(1033);
  EXPECT_EQ(mui.Text(1), "last");
  EXPECT_EQ(mui.Text(2), "");
  EXPECT_EQ(mui.Text(3), "a=b");
  EXPECT_EQ(mui.Text(4), "");
  EXPECT_EQ(mui.Text(5), " five");
  EXPECT_EQ(mui.Text(6), "up\r\nand\r\ndown");
  EXPECT_EQ(mui.Text(7), "\ttabs stay\t");
  EXPECT_EQ(mui.TextObj("no text"), "");
}

TEST_F(MuiTest, KeysCompareWithoutRegardToLetterCase) {
  addLanguage(1033, "English", "\r\nmainForm.Caption=Server\r\nMAINFORM.caption=Window");
  useFolder();
  mui.setLCID(1033);
  EXPECT_EQ(mui.TextObj("mainform.CAPTION"), "Window");
}

TEST_F(MuiTest, TextsThatTheNewLanguageLacksStay) {
  addLanguage(1031, "Deutsch", "\r\n$001=eins\r\n$002=zwei");
  addLanguage(1033, "English", "\r\n$001=one");
  useFolder();
  mui.setLCID(1031);
  mui.setLCID(1033);
  EXPECT_EQ(mui.Text(1), "one");
  EXPECT_EQ(mui.Text(2), "zwei");
}

TEST_F(MuiTest, SavingKeepsTheOrderInWhichKeysWereFirstSet) {
  mui.SetText(2, "two");
  mui.SetText(1, "line\r\nbreak");
  mui.SetText(2, "changed");
  folder.write("saved.txt", "something longer that was there before");
  mui.SaveLangFile(folder / "saved.txt", 1031, "Deutsch");
  EXPECT_EQ(folder.read("saved.txt"), "QVLF V1.0$1031$Deutsch\r\n$002=changed\r\n$001=line||break");
}

TEST_F(MuiTest, SavingIntoNowhereIsHarmless) {
  mui.SaveLangFile(folder / "none/saved.txt", 1031, "Deutsch");
  EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST_F(MuiTest, LineBreaksSurviveSavingEncodingAndLoading) {
  mui.SetText(1, "up\r\ndown");
  mui.SetText(2, std::string(1100, 'x'));
  mui.SaveLangFile(folder / "saved.txt", 1031, "Deutsch");
  ASSERT_TRUE(mui.EncodeLangFile(folder / "saved.txt", folder / "Lang/1031.lng"));
  clsMUI other(*files, 1033);
  other.setLangFolder(folder / "Lang");
  other.setLCID(1031);
  EXPECT_EQ(other.Text(1), "up\r\ndown");
  EXPECT_EQ(other.Text(2), std::string(1100, 'x'));
}

TEST_F(MuiTest, ShortTextsAreNotEncoded) {
  folder.write("short.txt", std::string(1023, 'x'));
  folder.write("long.txt", std::string(1024, 'x'));
  folder.write("empty.txt", "");
  folder.write("kept.lng", "kept");
  EXPECT_FALSE(mui.EncodeLangFile(folder / "short.txt", folder / "kept.lng"));
  EXPECT_FALSE(mui.EncodeLangFile(folder / "empty.txt", folder / "kept.lng"));
  EXPECT_FALSE(mui.EncodeLangFile(folder / "none.txt", folder / "kept.lng"));
  EXPECT_EQ(folder.read("kept.lng"), "kept");
  EXPECT_TRUE(mui.EncodeLangFile(folder / "long.txt", folder / "kept.lng"));
  EXPECT_EQ(mui.DecodeLangFile(folder / "kept.lng"), std::string(1024, 'x'));
  EXPECT_FALSE(mui.EncodeLangFile(folder / "long.txt", folder / "none/a.lng"));
}

TEST_F(MuiTest, TheFileHasItsHeader) {
  folder.write("plain.txt", std::string(2000, 'x'));
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  ASSERT_TRUE(mui.EncodeLangFile(folder / "plain.txt", folder / "a.lng"));
  const std::string file = folder.read("a.lng");
  ASSERT_GT(file.size(), 28U);
  EXPECT_EQ(file.substr(0, 6), "QVLF\x01\x00"s);
  EXPECT_EQ(numberAt(file, 6, 4), 760920U);
  EXPECT_EQ(numberAt(file, 10, 4), 2000U);
  EXPECT_EQ(numberAt(file, 22, 4), file.size() - 26);
  EXPECT_EQ(file.substr(26, 2), "\x1F\x8B");

  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const std::tm local = *std::localtime(&seconds);
  const double timeOfDay = (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
  const std::chrono::sys_days day =
      std::chrono::year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
  const auto days = static_cast<double>((day.time_since_epoch()).count()) + 25569;
  const double written = std::bit_cast<double>(numberAt(file, 14, 8));
  EXPECT_NEAR(written, days + timeOfDay, 5.0 / 86400);
}

TEST_F(MuiTest, TheTagAndOtherFieldsAreNotCheckedWhenDecoding) {
  folder.write("plain.txt", paddedText("QVLF V1.0$1031$Deutsch"));
  ASSERT_TRUE(mui.EncodeLangFile(folder / "plain.txt", folder / "a.lng"));
  std::string file = folder.read("a.lng");
  file.replace(0, 22, std::string(22, '?'));
  folder.write("a.lng", file);
  EXPECT_EQ(mui.DecodeLangFile(folder / "a.lng"), folder.read("plain.txt"));
}

TEST_F(MuiTest, DamagedFilesDecodeToNothing) {
  folder.write("plain.txt", paddedText("QVLF V1.0$1031$Deutsch"));
  ASSERT_TRUE(mui.EncodeLangFile(folder / "plain.txt", folder / "a.lng"));
  const std::string file = folder.read("a.lng");
  for (std::size_t cut = 0; cut < file.size(); ++cut) {
    folder.write("cut.lng", file.substr(0, cut));
    ASSERT_EQ(mui.DecodeLangFile(folder / "cut.lng"), "") << cut;
  }
  for (const std::string& claim :
       {"\0\0\0\0"s, "\xFF\xFF\xFF\xFF"s, "\xFF\xFF\xFF\x7F"s, "\0\0\0\x80"s, "\x05\0\0\0"s}) {
    folder.write("lying.lng", file.substr(0, 22) + claim + file.substr(26));
    EXPECT_EQ(mui.DecodeLangFile(folder / "lying.lng"), "");
  }
  folder.write("more.lng", file + "trailing bytes");
  EXPECT_EQ(mui.DecodeLangFile(folder / "more.lng"), folder.read("plain.txt"));
  EXPECT_EQ(mui.DecodeLangFile(folder / "none.lng"), "");
  EXPECT_EQ(mui.DecodeLangFile(folder.path()), "");
}

TEST_F(MuiTest, WhatUnpacksToFarTooMuchIsRefused) {
  std::string packed(80 << 20, 'x');
  ASSERT_TRUE(clsZipString::CompressStringB(packed, clsZipString::kGzip));
  std::string header(26, '\0');
  for (std::size_t i = 0; i < 4; ++i) header[22 + i] = static_cast<char>(packed.size() >> (8 * i));
  folder.write("bomb.lng", header + packed);
  EXPECT_EQ(mui.DecodeLangFile(folder / "bomb.lng"), "");
}

TEST_F(MuiTest, SurvivesDamage) {
  folder.write("plain.txt", paddedText("QVLF V1.0$1031$Deutsch", "\r\n$001=a||b"));
  ASSERT_TRUE(mui.EncodeLangFile(folder / "plain.txt", folder / "a.lng"));
  const std::string file = folder.read("a.lng");
  std::mt19937 random(1);
  int listed = 0;
  for (int round = 0; round < 300; ++round) {
    std::string damaged = file;
    for (int i = 0; i < 2; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    folder.write("Lang/damaged.lng", damaged);
    useFolder();
    listed += mui.AvailableLangCount();
    mui.setLCID(1031);
  }
  EXPECT_GT(listed, 0);
  EXPECT_LT(listed, 300);
}

// Forms.

class FakeControl final : public LanguageControl {
 public:
  FakeControl(std::string name, std::optional<int> index,
              std::map<TextPlace, std::pair<int, std::vector<std::string>>> values)
      : texts(std::move(values)), name_(std::move(name)), index_(index) {}

  std::string name() const override { return name_; }
  std::optional<int> index() const override { return index_; }
  TextRange range(TextPlace place) const override {
    const auto found = texts.find(place);
    if (found == texts.end()) return {};
    return {found->second.first, static_cast<int>(found->second.second.size())};
  }
  std::string text(TextPlace place, int number) const override {
    const auto& [first, list] = texts.at(place);
    return list.at(static_cast<std::size_t>(number - first));
  }
  void setText(TextPlace place, int number, const std::string& text) override {
    auto& [first, list] = texts.at(place);
    list.at(static_cast<std::size_t>(number - first)) = text;
  }

  std::map<TextPlace, std::pair<int, std::vector<std::string>>> texts;

 private:
  std::string name_;
  std::optional<int> index_;
};

class FakeForm final : public LanguageForm {
 public:
  std::string name() const override { return "mainForm"; }
  std::string caption() const override { return title; }
  void setCaption(const std::string& caption) override { title = caption; }
  std::size_t controlCount() const override { return controls.size(); }
  LanguageControl& control(std::size_t place) override { return controls.at(place); }

  std::string title = "Window";
  std::vector<FakeControl> controls{
      {"btt", 0, {{TextPlace::Caption, {0, {"Start"}}}, {TextPlace::ToolTipText, {0, {"Tip"}}}}},
      {"btt", 1, {{TextPlace::Caption, {0, {"Clear"}}}}},
      {"dbgText", {}, {{TextPlace::Text, {0, {"Line"}}}}},
      {"strip", {}, {{TextPlace::Tabs, {1, {"First", "Second"}}}}},
      {"dialog", {}, {{TextPlace::TabCaption, {0, {"General", "More"}}}}},
      {"list", 2, {{TextPlace::ColumnHeaders, {1, {"Name", "Size"}}}}},
      {"picture", {}, {}},
  };
};

const std::vector<std::pair<std::string, std::string>> kFormTexts = {
    {"mainForm.Caption", "Window"},
    {"mainForm.btt(0).Caption", "Start"},
    {"mainForm.btt(0).ToolTipText", "Tip"},
    {"mainForm.btt(1).Caption", "Clear"},
    {"mainForm.dbgText.Text", "Line"},
    {"mainForm.strip.Tabs[1].Caption", "First"},
    {"mainForm.strip.Tabs[2].Caption", "Second"},
    {"mainForm.dialog.TabCaption[0]", "General"},
    {"mainForm.dialog.TabCaption[1]", "More"},
    {"mainForm.list(2).ColumnHeaders[1].Text", "Name"},
    {"mainForm.list(2).ColumnHeaders[2].Text", "Size"},
};

TEST_F(MuiTest, AFormsTextsAreCapturedUnderTheirKeysInOrder) {
  FakeForm form;
  mui.CaptureFormData(form);
  mui.SaveLangFile(folder / "saved.txt", 1033, "English");
  std::string expected = "QVLF V1.0$1033$English";
  for (const auto& [key, text] : kFormTexts) expected += "\r\n" + key + "=" + text;
  EXPECT_EQ(folder.read("saved.txt"), expected);
}

TEST_F(MuiTest, AFormTakesTheTextsOfTheTable) {
  std::string lines;
  for (const auto& [key, text] : kFormTexts) lines += "\r\n" + key + "=" + text + "!";
  addLanguage(1033, "English", lines);
  useFolder();
  mui.setLCID(1033);
  FakeForm form;
  mui.SetFormLang(form);
  EXPECT_EQ(form.title, "Window!");
  const auto text = [&](std::size_t control, TextPlace place, int number) {
    return form.controls[control].text(place, number);
  };
  EXPECT_EQ(text(0, TextPlace::Caption, 0), "Start!");
  EXPECT_EQ(text(0, TextPlace::ToolTipText, 0), "Tip!");
  EXPECT_EQ(text(1, TextPlace::Caption, 0), "Clear!");
  EXPECT_EQ(text(2, TextPlace::Text, 0), "Line!");
  EXPECT_EQ(text(3, TextPlace::Tabs, 1), "First!");
  EXPECT_EQ(text(3, TextPlace::Tabs, 2), "Second!");
  EXPECT_EQ(text(4, TextPlace::TabCaption, 0), "General!");
  EXPECT_EQ(text(5, TextPlace::ColumnHeaders, 2), "Size!");
}

TEST_F(MuiTest, AFormKeepsWhatTheTableLacks) {
  addLanguage(1033, "English", "\r\nmainForm.btt(1).Caption=\r\nmainForm.btt.Caption=other");
  useFolder();
  mui.setLCID(1033);
  FakeForm form;
  mui.SetFormLang(form);
  EXPECT_EQ(form.title, "Window");
  EXPECT_EQ(form.controls[0].text(TextPlace::Caption, 0), "Start");
  EXPECT_EQ(form.controls[1].text(TextPlace::Caption, 0), "") << "an empty text is a text";
}

}  // namespace

}  // namespace quorvane
