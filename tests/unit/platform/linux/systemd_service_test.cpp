#include "platform/linux/systemd_service.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "fake_systemd.h"
#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Scope = ServiceManager::Scope;

constexpr const char* kService = "Quorvane Server";
constexpr const char* kUnit = "quorvane-server.service";

BusConnection noBus() {
  return nullptr;
}

TEST(SystemdManager, TellsWhichServicesRunAndWhichAreInstalled) {
  FakeSystemd systemd;
  systemd.addUnitFile(kUnit);
  systemd.addUnitFile("cron.service", "enabled");
  systemd.setActiveState("cron.service", "active");
  const SystemdManager manager(systemd.connector());
  EXPECT_THAT(manager.serviceNames(Scope::Active), ElementsAre("cron"));
  EXPECT_THAT(manager.serviceNames(Scope::All), Contains("quorvane server"));
}

TEST(SystemdManager, CountsAServiceThatComesUpAsNotYetRunning) {
  FakeSystemd systemd;
  const SystemdManager manager(systemd.connector());
  systemd.setActiveState(kUnit, "activating");
  EXPECT_THAT(manager.serviceNames(Scope::Active), IsEmpty());
  systemd.setActiveState(kUnit, "reloading");
  EXPECT_THAT(manager.serviceNames(Scope::Active), ElementsAre("quorvane server"));
}

TEST(SystemdManager, CountsAServiceThatGoesDownAsStillRunning) {
  FakeSystemd systemd;
  systemd.looksUntilStopped = 1;
  systemd.setActiveState(kUnit, "deactivating");
  const SystemdManager manager(systemd.connector());
  EXPECT_THAT(manager.serviceNames(Scope::Active), ElementsAre("quorvane server"));
  EXPECT_THAT(manager.serviceNames(Scope::Active), IsEmpty());
}

TEST(SystemdManager, DoesNotCountAMaskedUnit) {
  FakeSystemd systemd;
  systemd.addUnitFile(kUnit, "masked");
  EXPECT_THAT(SystemdManager(systemd.connector()).serviceNames(Scope::All), IsEmpty());
}

TEST(SystemdManager, StartsAndStops) {
  FakeSystemd systemd;
  systemd.addUnitFile(kUnit);
  SystemdManager manager(systemd.connector());
  EXPECT_TRUE(manager.requestStart(kService));
  EXPECT_EQ(systemd.activeState(kUnit), "active");
  EXPECT_TRUE(manager.requestStop(kService));
  EXPECT_EQ(systemd.activeState(kUnit), "deactivating");
}

TEST(SystemdManager, FindsAUnitNamedInCapitals) {
  FakeSystemd systemd;
  systemd.addUnitFile("QUORVANE-SERVER.service");
  SystemdManager manager(systemd.connector());
  EXPECT_THAT(manager.serviceNames(Scope::All), ElementsAre("QUORVANE SERVER"));
  EXPECT_TRUE(manager.requestStart(kService));
  EXPECT_EQ(systemd.activeState("QUORVANE-SERVER.service"), "active");
}

TEST(SystemdManager, IsQuietWithoutRights) {
  FakeSystemd systemd;
  systemd.addUnitFile(kUnit);
  systemd.denies = true;
  SystemdManager manager(systemd.connector());
  EXPECT_FALSE(manager.requestStart(kService));
  EXPECT_FALSE(manager.requestStop(kService));
  EXPECT_THAT(manager.serviceNames(Scope::All), ElementsAre("quorvane server"));
}

TEST(SystemdManager, IsQuietWithoutSystemd) {
  SystemdManager manager(noBus);
  EXPECT_THAT(manager.serviceNames(Scope::All), IsEmpty());
  EXPECT_FALSE(manager.requestStart(kService));
  EXPECT_FALSE(manager.requestStop(kService));
}

TEST(SystemdManager, ConnectsAgainAfterTheBusWentAway) {
  FakeSystemd systemd;
  systemd.addUnitFile(kUnit);
  SystemdManager manager(systemd.connector());
  EXPECT_TRUE(manager.requestStart(kService));
  systemd.dropConnections();
  manager.requestStop(kService);  // may find out
  EXPECT_TRUE(manager.requestStop(kService));
}

class SystemdHostTest : public testing::Test {
 protected:
  SystemdHostTest() : systemd(folder.path()), files(makeFiles()), loop(makeEventLoop()) {}

  SystemdHost host(SystemdBus::Connect connect) {
    SystemdHost made(*loop, *files,
                     {folder.path(), "/opt/quorvane/quorvane-server", "/etc/quorvane"},
                     std::move(connect));
    made.serviceName = made.displayName = kService;
    made.startMode = 2;
    return made;
  }
  SystemdHost host() { return host(systemd.connector()); }

  std::string unitFile() const { return folder / kUnit; }

  TemporaryFolder folder;
  FakeSystemd systemd;
  std::unique_ptr<Files> files;
  std::unique_ptr<EventLoop> loop;
};

TEST_F(SystemdHostTest, InstallsAUnitThatStartsWithTheSystem) {
  EXPECT_TRUE(host().install());
  EXPECT_EQ(systemd.fileState(kUnit), "enabled");
  EXPECT_THAT(systemd.calls(), ElementsAre("EnableUnitFiles quorvane-server.service", "Reload"));
  EXPECT_THAT(files->readAll(unitFile()).value_or(""),
              testing::HasSubstr("ExecStart=:\"/opt/quorvane/quorvane-server\""));
}

TEST_F(SystemdHostTest, InstallsOnDemandWithoutEnabling) {
  SystemdHost onDemand = host();
  onDemand.startMode = 3;
  EXPECT_TRUE(onDemand.install());
  EXPECT_EQ(systemd.fileState(kUnit), "disabled");
}

TEST_F(SystemdHostTest, LeavesNothingBehindWithoutRights) {
  systemd.denies = true;
  EXPECT_FALSE(host().install());
  EXPECT_FALSE(fs::exists(unitFile()));
}

TEST_F(SystemdHostTest, WritesNothingWithoutSystemd) {
  EXPECT_FALSE(host(noBus).install());
  EXPECT_FALSE(fs::exists(unitFile()));
  EXPECT_FALSE(host(noBus).uninstall());
}

TEST_F(SystemdHostTest, UninstallsAfterTheServiceIsDown) {
  ASSERT_TRUE(host().install());
  systemd.setActiveState(kUnit, "active");
  systemd.looksUntilStopped = 3;
  EXPECT_TRUE(host().uninstall());
  EXPECT_EQ(systemd.activeState(kUnit), "inactive");
  EXPECT_EQ(systemd.fileState(kUnit), "");
  EXPECT_FALSE(fs::exists(unitFile()));
  EXPECT_EQ(systemd.calls().back(), "Reload");
}

TEST_F(SystemdHostTest, KeepsTheUnitWhenItMayNotBeDisabled) {
  ASSERT_TRUE(host().install());
  systemd.denies = true;
  EXPECT_FALSE(host().uninstall());
  EXPECT_TRUE(fs::exists(unitFile()));
}

TEST_F(SystemdHostTest, HasNothingToUninstallWhenNothingIsInstalled) {
  EXPECT_FALSE(host().uninstall());
  EXPECT_THAT(systemd.calls(), IsEmpty());
}

/// The socket on which systemd hears from a service.
class NotificationSocket {
 public:
  explicit NotificationSocket(const std::string& path)
      : fd_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    EXPECT_EQ(::bind(fd_, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    ::setenv("NOTIFY_SOCKET", path.c_str(), 1);
    ::setenv("SYSTEMD_EXEC_PID", std::to_string(::getpid()).c_str(), 1);
  }
  NotificationSocket(const NotificationSocket&) = delete;
  NotificationSocket& operator=(const NotificationSocket&) = delete;
  ~NotificationSocket() {
    ::unsetenv("NOTIFY_SOCKET");
    ::unsetenv("SYSTEMD_EXEC_PID");
    ::close(fd_);
  }

  std::string next() const {
    char text[200];
    const ssize_t length = ::recv(fd_, text, sizeof(text), 0);
    return length < 0 ? "" : std::string(text, static_cast<std::size_t>(length));
  }

 private:
  int fd_;
};

TEST_F(SystemdHostTest, TellsWhenTheServerIsReadyAndWhenItStops) {
  const NotificationSocket heard(folder / "notify");
  SystemdHost service = host();
  std::vector<std::string> events;
  ASSERT_TRUE(service.startService(
      [&] {
        events.push_back("started after '" + heard.next() + "'");
        service.reportStatus("Serving");
        loop->post([] { std::raise(SIGTERM); });
      },
      [&] {
        events.emplace_back("stopped");
        loop->stop();
      }));
  EXPECT_THAT(events, IsEmpty()) << "the start is an event of the loop";
  loop->run();
  EXPECT_THAT(events, ElementsAre("started after ''", "stopped"));
  EXPECT_EQ(heard.next(), "STATUS=Serving");
  EXPECT_EQ(heard.next(), "READY=1");
  EXPECT_EQ(heard.next(), "STOPPING=1");
}

TEST_F(SystemdHostTest, ReportsWithoutBeingHandedTheProcess) {
  const NotificationSocket heard(folder / "notify");
  host().reportReady();
  EXPECT_EQ(heard.next(), "READY=1");
  ::setenv("SYSTEMD_EXEC_PID", "1", 1);
  host().reportReady();
  EXPECT_EQ(heard.next(), "");
}

TEST_F(SystemdHostTest, TakesNoServiceStartWithoutAManagerAbove) {
  ::unsetenv("NOTIFY_SOCKET");
  EXPECT_FALSE(host().startService([] {}, [] {}));
}

TEST_F(SystemdHostTest, IsNotFooledByAnInheritedEnvironment) {
  const NotificationSocket heard(folder / "notify");
  ::setenv("SYSTEMD_EXEC_PID", "1", 1);
  EXPECT_FALSE(host().startService([] {}, [] {}));
}

}  // namespace

}  // namespace quorvane
