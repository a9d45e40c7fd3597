#include "startup/untaken_settings.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_files.h"
#include "platform/text_settings.h"

namespace quorvane {

namespace {

using Lines = std::vector<std::string>;

/// What is said of a settings file.
Lines untaken(const std::string& content) {
  MemoryFiles files;
  files.put("/s/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server.ini", content);
  return untakenSettings(TextSettings(files, "/s"));
}

TEST(UntakenSettings, WhatCountsIsNotMentioned) {
  EXPECT_EQ(untaken(""), Lines());
  EXPECT_EQ(untaken("; a comment\n\n[section]\n# another\n  port  =8080\r\nLogServer=0\n"
                    "EncodeStatic=1\nEncodeImages=\nDefaultLCID= 1031 \nControlAnyAddress=0\n"),
            Lines());
  EXPECT_EQ(untaken("Listen=127.0.0.1:710%i\nSharePort=1\nSessionStore=redis://:x@host:1/2\n"),
            Lines());
}

TEST(UntakenSettings, WithoutAFileThereIsNothing) {
  const MemoryFiles files;
  EXPECT_EQ(untakenSettings(TextSettings(files, "/s")), Lines());
}

TEST(UntakenSettings, TextsThatSomethingElseCountsFor) {
  EXPECT_EQ(
      untaken("EncodeStatic = 1\nLogServer=no\nPort=65535\nDefaultLCID=german\n"
              "LocalhostOnly=1 ; comment\n"),
      (Lines{
          "Settings line 1 not taken: EncodeStatic is \" 1\"; it is neither \"0\" nor \"1\" and "
          "counts as \"0\"",
          "Settings line 2 not taken: LogServer is \"no\"; it is neither \"0\" nor \"1\" and "
          "counts as \"1\"",
          "Settings line 3 not taken: Port is \"65535\"; it is no port from 1 to 65534 and "
          "counts as 7007",
          "Settings line 4 not taken: DefaultLCID is \"german\"; it is no number and counts as 0",
          "Settings line 5 not taken: LocalhostOnly is \"1 ; comment\"; it is neither \"0\" nor "
          "\"1\" and counts as \"0\""}));
}

TEST(UntakenSettings, AStoreThatIsNone) {
  EXPECT_EQ(untaken("SessionStore=localhost\nListen=%i%i:x\n"),
            (Lines{"Settings line 1 not taken: SessionStore is \"localhost\"; it is no redis:// "
                   "address and sessions stay in memory",
                   "Settings line 2 not taken: Listen is \"%i%i:x\"; not all of it are ports, "
                   "addresses with a port or \"unix:\" with a path"}));
}

TEST(UntakenSettings, RedirectedDatabases) {
  MemoryFiles files;
  files.put("/s/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server/Databases.ini",
            "1=*shop* -> DSN=shop\nx=*a* -> b\n2=a\n3= -> a\nalone\n");
  EXPECT_EQ(untakenSettings(TextSettings(files, "/s")),
            (Lines{"Settings line 2 of Databases not taken: it is no number, \"=\" and "
                   "\"pattern -> text\"",
                   "Settings line 3 of Databases not taken: it is no \"pattern -> text\"",
                   "Settings line 4 of Databases not taken: it is no \"pattern -> text\"",
                   "Settings line 5 of Databases not taken: it is no number, \"=\" and "
                   "\"pattern -> text\""}));
}

TEST(UntakenSettings, PortsAndTries) {
  EXPECT_EQ(untaken("ControlPort=9000\nRetryPort=1\n"), Lines());
  EXPECT_EQ(untaken("ControlPort=65535\nRetryPort=yes\n"),
            (Lines{"Settings line 1 not taken: ControlPort is \"65535\"; it is no port from 1 to "
                   "65534 and counts as 7008",
                   "Settings line 2 not taken: RetryPort is \"yes\"; it is neither \"0\" nor "
                   "\"1\" and counts as \"0\""}));
}

TEST(UntakenSettings, BoundsThatAreNone) {
  EXPECT_EQ(untaken("LogTextLimit=4096\nLogFileLimit=0\n"), Lines());
  EXPECT_EQ(
      untaken("LogTextLimit=-1\nLogFileLimit=much\n"),
      (Lines{"Settings line 1 not taken: LogTextLimit is \"-1\"; it is no number of bytes and "
             "counts as 2048",
             "Settings line 2 not taken: LogFileLimit is \"much\"; it is no number of MiB and "
             "counts as 0"}));
}

TEST(UntakenSettings, CodePages) {
  EXPECT_EQ(untaken("JetCodePage=1251\n"), Lines());
  for (const std::string text : {"x", "1", "-1252", "utf-8"}) {
    EXPECT_EQ(untaken("JetCodePage=" + text + "\n"),
              Lines{"Settings line 1 not taken: JetCodePage is \"" + text +
                    "\"; it is no code page and counts as if it were not there"});
  }
}

TEST(UntakenSettings, ComponentsComeFromOneOfThreePlaces) {
  for (const std::string text : {"system", "own", "none", ""}) {
    EXPECT_EQ(untaken("Components=" + text + "\n"), Lines()) << text;
  }
  EXPECT_EQ(untaken("Components=Own\n"),
            Lines{"Settings line 1 not taken: Components is \"Own\"; it is neither \"system\", "
                  "\"own\" nor \"none\" and counts as \"system\""});
}

TEST(UntakenSettings, ThereAreThreeWaysToTakePages) {
  EXPECT_EQ(untaken("Customary=2\nNotFoundPage=/404.asp\n"), Lines());
  EXPECT_EQ(untaken("Customary=1\n"), Lines());
  for (const char* text : {"3", "-1", " 2", "02", "2 ", "two"}) {
    EXPECT_EQ(untaken("Customary=" + std::string(text) + "\n"),
              Lines{"Settings line 1 not taken: Customary is \"" + std::string(text) +
                    "\"; it is neither \"0\", \"1\" nor \"2\" and counts as \"0\""});
  }
}

TEST(UntakenSettings, LinesThatAreNoSetting) {
  EXPECT_EQ(untaken("Prot=80\nPort 80\nPort=1\nPORT=2\n=x\n"),
            (Lines{"Settings line 1 not taken: there is no setting \"Prot\"",
                   "Settings line 2 not taken: it has no \"=\"",
                   "Settings line 4 not taken: Port stands in line 3, which counts",
                   "Settings line 5 not taken: there is no setting \"\""}));
}

TEST(UntakenSettings, AByteOrderMarkIsPassedOver) {
  EXPECT_EQ(untaken("\xEF\xBB\xBFPort=80\n"), Lines());
}

TEST(UntakenSettings, WhatIsShownIsPrintableAndShort) {
  EXPECT_EQ(untaken("a\x1b" + std::string(1000, 'b') + "=1\n"),
            Lines{"Settings line 1 not taken: there is no setting \"a\\x1b" + std::string(78, 'b') +
                  "...\""});
}

}  // namespace

}  // namespace quorvane
