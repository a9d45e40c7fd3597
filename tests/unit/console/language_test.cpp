#include "support/clsMUI.h"
#include "window_fixture.h"

namespace quorvane {

namespace {

/// A window whose base folder holds language files.
class Language : public WindowTest {
 protected:
  Language() {
    offer(1031, "Deutsch", "Protokoll leeren", "Seite %1");
    offer(1033, "English", "Clear Log", "Page %1");
    offer(2070, "Portugues", "Limpar", "Pagina %1");
  }

  void offer(int number, const std::string& name, const std::string& clear,
             const std::string& text) {
    files.addFolder("/base/Lang");
    files.put("/base/plain.txt", "QVLF V1.0$" + std::to_string(number) + "$" + name +
                                     "\r\nmainForm.Caption=" + name +
                                     "\r\nmainForm.btt(1).Caption=" + clear + "\r\n$007=" + text +
                                     "\r\n;" + std::string(1100, '-'));
    ASSERT_TRUE(
        clsMUI(files, 1033)
            .EncodeLangFile("/base/plain.txt", "/base/Lang/" + std::to_string(number) + ".lng"));
  }
  std::string loaded() { return lastLine(); }
  std::string clearCaption() { return *window.form().btt[1].caption; }
};

TEST_F(Language, WithoutAChoiceItIsEnglish) {
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 1033");
  EXPECT_EQ(clearCaption(), "Clear Log");
}

TEST_F(Language, TheUsersChoiceIsTakenWhenItIsANumber) {
  settings.language = "1031";
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 1031");
  EXPECT_EQ(clearCaption(), "Protokoll leeren");
  EXPECT_EQ(window.form().caption, "Deutsch");
  settings.language = "deutsch";
  window.StartServer(true);
  EXPECT_EQ(loaded(), "LCID: 1033");
  EXPECT_EQ(clearCaption(), "Clear Log");
}

TEST_F(Language, TheSettingGoesBeforeTheUsersChoice) {
  settings.language = "1033";
  settings.onLoad = [](ServerState& s) { s.DefaultLCID = 1031; };
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 1031");
}

TEST_F(Language, ALanguageThatIsNotThereFallsBack) {
  settings.language = "1046";
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 2070");
  settings.language = "9999";
  window.StartServer(true);
  EXPECT_EQ(loaded(), "LCID: 1033");
}

TEST_F(Language, AStoppedServersLanguageIsChosenAnewAtTheNextStart) {
  window.StartServer();
  window.StopServer();
  settings.onLoad = [](ServerState& s) { s.DefaultLCID = 1031; };
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 1031");
}

TEST_F(Language, PagesAskForNumberedTexts) {
  settings.language = "1031";
  window.StartServer();
  EXPECT_EQ(output("<%= QvS.Text(7, 5) %>|<%= QvS.Text(8, 5) %>"), "Seite 5|");
}

TEST_F(Language, WithoutAnyFileTheTextsStayAsTheyAre) {
  for (const auto& name : files.list("/base/Lang")) files.remove("/base/Lang/" + name);
  settings.language = "1031";
  window.StartServer();
  EXPECT_EQ(loaded(), "LCID: 0");
  EXPECT_EQ(clearCaption(), "Clear Log");
}

}  // namespace

}  // namespace quorvane
