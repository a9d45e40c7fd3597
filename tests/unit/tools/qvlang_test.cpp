#include "tools/qvlang.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/system.h"
#include "support/clsMUI.h"
#include "testing/temporary_folder.h"
#include "tools/qvlang_check.h"

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kComment = "; " + std::string(1100, 'x') + "\r\n";
const std::string kSound = "QVLF V1.0$1031$Deutsch\r\n" + kComment + "$001=eins\r\n";

TEST(LanguageCheck, ASoundTextHasNoFindings) {
  EXPECT_THAT(checkLanguageText(kSound), IsEmpty());
  EXPECT_THAT(checkLanguageText(kSound + "\r\n  \r\nmainForm.btt(0).Caption=\r\n ;x"), IsEmpty());
}

TEST(LanguageCheck, TheHeadingMustBeComplete) {
  const std::string rest = "\r\n" + kComment + "$001=x";
  EXPECT_THAT(checkLanguageText("QVLF 1.0$1031$Deutsch" + rest),
              ElementsAre(HasSubstr("begin with")));
  EXPECT_THAT(checkLanguageText("QVLF V1.0$x$Deutsch" + rest),
              ElementsAre(HasSubstr("locale identifier")));
  EXPECT_THAT(checkLanguageText("QVLF V1.0$1031" + rest), ElementsAre(HasSubstr("language name")));
}

TEST(LanguageCheck, LinesThatWouldBePassedOverAreFound) {
  EXPECT_THAT(checkLanguageText(kSound + "no text"), ElementsAre(HasSubstr("line 4: neither")));
  EXPECT_THAT(checkLanguageText(kSound + "a\nb.c=d"), ElementsAre(HasSubstr("lone CR or LF")));
  EXPECT_THAT(checkLanguageText(kSound + "$01=x"), ElementsAre(HasSubstr("no key: \"$01\"")));
  EXPECT_THAT(checkLanguageText(kSound + "$002 =x"), ElementsAre(HasSubstr("no key")));
  EXPECT_THAT(checkLanguageText(kSound + "caption=x"), ElementsAre(HasSubstr("no key")));
  EXPECT_THAT(checkLanguageText(kSound + "a.b=x\r\nA.B=y"),
              ElementsAre(HasSubstr("line 5: \"A.B\" stands in line 4 already")));
  EXPECT_THAT(checkLanguageText("QVLF V1.0$1031$Deutsch\r\n" + kComment),
              ElementsAre(HasSubstr("no text")));
}

TEST(LanguageCheck, TheLengthMustSuitTheFormat) {
  EXPECT_THAT(checkLanguageText("QVLF V1.0$1031$Deutsch\r\n$001=x"),
              ElementsAre(HasSubstr("fewer than 1024")));
  const std::string start = kSound + "$002=";
  EXPECT_THAT(checkLanguageText(start + std::string(65536 - start.size(), 'x')),
              ElementsAre(HasSubstr("multiple of 65536")));
}

TEST(LanguageCheck, ComparesKeysAndValues) {
  const std::string reference = "QVLF V1.0$1033$English\r\n$001=%1 of %2\r\n$002=b\r\n$003=100%";
  EXPECT_THAT(compareLanguageTexts("QVLF\r\n$001=%2 von %1\r\n$002=\r\n$003=100 %", reference),
              IsEmpty());
  EXPECT_THAT(compareLanguageTexts("QVLF\r\n$001=%1\r\n$003=c\r\n$004=d", reference),
              ElementsAre(HasSubstr("$001\" takes other"), HasSubstr("$002\" is missing"),
                          HasSubstr("$004\" is not in")));
}

class LanguageToolTest : public testing::Test {
 protected:
  ExitCode run(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return runLanguageTool(arguments, *files, out, err);
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(LanguageToolTest, EncodesAndDecodes) {
  folder.write("a.txt", kSound);
  EXPECT_EQ(run({"encode", folder / "a.txt", folder / "a.lng"}), ExitCode::Done);
  EXPECT_EQ(clsMUI(*files, 1033).DecodeLangFile(folder / "a.lng"), kSound);
  EXPECT_EQ(run({"decode", folder / "a.lng"}), ExitCode::Done);
  EXPECT_EQ(out.str(), kSound);
  EXPECT_EQ(run({"decode", folder / "a.lng", folder / "b.txt"}), ExitCode::Done);
  EXPECT_EQ(folder.read("b.txt"), kSound);
}

TEST_F(LanguageToolTest, EncodesNothingThatTheCheckRefuses) {
  folder.write("a.txt", kSound + "no text");
  EXPECT_EQ(run({"encode", folder / "a.txt", folder / "a.lng"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("neither a comment"));
  EXPECT_FALSE(files->stat(folder / "a.lng"));
}

TEST_F(LanguageToolTest, ChecksTextsAndFiles) {
  folder.write("a.txt", kSound);
  folder.write("b.txt", kSound + "$002=zwei");
  ASSERT_EQ(run({"encode", folder / "b.txt", folder / "b.lng"}), ExitCode::Done);
  EXPECT_EQ(run({"check", folder / "a.txt", folder / "b.lng"}), ExitCode::Done);
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(run({"check", "--against", folder / "a.txt", folder / "b.lng"}), ExitCode::Finding);
  EXPECT_EQ(err.str(), folder / "b.lng: \"$002\" is not in the reference.\n");
}

TEST_F(LanguageToolTest, FilesThatCantBeReadOrWrittenAreFailures) {
  folder.write("a.txt", kSound);
  folder.write("broken.lng", "QVLF\x01 and more than a header's length of nothing");
  EXPECT_EQ(run({"encode", folder / "none", folder / "a.lng"}), ExitCode::Failed);
  EXPECT_EQ(run({"encode", folder / "a.txt", folder / "none/a.lng"}), ExitCode::Failed);
  EXPECT_EQ(run({"decode", folder / "none"}), ExitCode::Failed);
  EXPECT_EQ(run({"decode", folder / "broken.lng"}), ExitCode::Failed);
  EXPECT_EQ(run({"check", folder / "broken.lng"}), ExitCode::Failed);
  EXPECT_EQ(run({"check", "--against", folder / "none", folder / "a.txt"}), ExitCode::Failed);
  EXPECT_THAT(err.str(), HasSubstr("qvlang: can't read"));
}

TEST_F(LanguageToolTest, HelpAndMistakes) {
  EXPECT_EQ(run({"--help"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("qvlang encode"));
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
           {}, {"translate"}, {"encode", "a"}, {"decode"}, {"check"}, {"check", "--against"}}) {
    EXPECT_EQ(run(wrong), ExitCode::Usage);
    EXPECT_THAT(err.str(), HasSubstr("--help"));
  }
}

TEST_F(LanguageToolTest, TheShippedLanguagesAreSoundAndHaveTheSameTexts) {
  const std::string lang = LANGUAGE_FOLDER;
  EXPECT_EQ(run({"check", "--against", lang + "/1033.txt", lang + "/1031.txt", lang + "/1033.txt",
                 lang + "/1036.txt", lang + "/1046.txt", lang + "/2070.txt"}),
            ExitCode::Done);
  EXPECT_EQ(err.str(), "");
}

}  // namespace

}  // namespace quorvane
