#include "platform/linux/systemd_unit.h"

#include <gmock/gmock.h>

namespace quorvane {

namespace {

using testing::HasSubstr;
using testing::Not;

const ServiceUnit kUnit{"Quorvane Server", "/opt/quorvane/quorvane-server", "/etc/quorvane"};

std::string text(const ServiceUnit& unit) {
  return unitText(unit).value_or("nothing");
}

TEST(UnitName, HasHyphensForBlanksAndSmallLetters) {
  EXPECT_EQ(unitNameOf("Quorvane Server"), "quorvane-server.service");
}

TEST(UnitName, TellsTheServiceAgain) {
  EXPECT_EQ(serviceNameOf("quorvane-server.service"), "quorvane server");
  EXPECT_EQ(serviceNameOf("QUORVANE-SERVER.service"), "QUORVANE SERVER");
  EXPECT_EQ(serviceNameOf("plain"), "plain");
}

TEST(UnitName, IsComparedWithoutCase) {
  EXPECT_TRUE(sameServiceName("Quorvane Server", "QUORVANE sERVER"));
  EXPECT_FALSE(sameServiceName("Quorvane Server", "Quorvane Serve"));
}

TEST(UnitText, StartsTheProgramAsANotifyingServiceThatComesBack) {
  const std::string unit = text(kUnit);
  EXPECT_THAT(unit, HasSubstr("Description=Quorvane Server\n"));
  EXPECT_THAT(unit, HasSubstr("\nType=notify\n"));
  EXPECT_THAT(unit, HasSubstr("\nExecStart=:\"/opt/quorvane/quorvane-server\"\n"));
  EXPECT_THAT(unit, HasSubstr("\nRestart=on-failure\n"));
  EXPECT_THAT(unit, HasSubstr("\nWantedBy=multi-user.target\n"));
}

TEST(UnitText, GivesTheServiceTheStoreThatItsInstallerHad) {
  EXPECT_THAT(text(kUnit), HasSubstr("\nEnvironment=\"QUORVANE_REGISTRY=/etc/quorvane\"\n"));
}

TEST(UnitText, GivesInstancesOfATemplateTheirNumbers) {
  EXPECT_THAT(text(kUnit), ::testing::Not(HasSubstr("QUORVANE_INSTANCE")));
  ServiceUnit unit = kUnit;
  unit.isTemplate = true;
  EXPECT_THAT(text(unit), HasSubstr("Description=Quorvane Server, instance %i\n"));
  EXPECT_THAT(text(unit), HasSubstr("\nEnvironment=QUORVANE_INSTANCE=%i\n"));
}

TEST(UnitText, LeavesOnlyTheServersOwnFoldersWritable) {
  EXPECT_THAT(text(kUnit), HasSubstr("\nProtectSystem=strict\n"));
  EXPECT_THAT(text(kUnit), HasSubstr("\nReadWritePaths=\"/opt/quorvane/\" \"-/etc/quorvane\"\n"));
  EXPECT_THAT(text(kUnit), HasSubstr("\nNoNewPrivileges=yes\n"));
}

TEST(UnitText, KeepsATemporaryFolderInSightWhenTheServerLivesInIt) {
  EXPECT_THAT(text(kUnit), HasSubstr("\nPrivateTmp=yes\n"));
  EXPECT_THAT(text({"Q", "/tmp/site/server", "/etc/q"}), HasSubstr("\nPrivateTmp=no\n"));
  EXPECT_THAT(text({"Q", "/opt/q/server", "/var/tmp"}), HasSubstr("\nPrivateTmp=no\n"));
  EXPECT_THAT(text({"Q", "/tmpfolder/server", "/etc/q"}), HasSubstr("\nPrivateTmp=yes\n"));
}

TEST(UnitText, QuotesPathsSoThatNothingInThemIsRead) {
  const std::string unit = text({"Q", "/a \"b\" 100%/c\\d/$e", "/s"});
  EXPECT_THAT(unit, HasSubstr("ExecStart=:\"/a \\\"b\\\" 100%%/c\\\\d/$e\"\n"));
}

TEST(UnitText, RefusesPathsThatCouldAddLines) {
  EXPECT_EQ(unitText({"Q", "/a\nExecStartPre=/bin/x", "/s"}), std::nullopt);
  EXPECT_EQ(unitText({"Q", "/a", "/s\n"}), std::nullopt);
  EXPECT_EQ(unitText({"Q", "relative", "/s"}), std::nullopt);
  EXPECT_EQ(unitText({"Q", "/a", ""}), std::nullopt);
}

}  // namespace

}  // namespace quorvane
