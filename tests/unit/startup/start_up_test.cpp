#include "startup/start_up.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"
#include "platform/fake/memory_settings.h"
#include "testing/spelling.h"

namespace quorvane {

namespace {

class StartUpTest : public testing::Test {
 protected:
  StartUpTest() {
    state.AppVersion = "1.2.3";
    files.addFolder("/program");
    files.addFolder("/program/Server");
    window.status().echo = [this](std::string_view line) { echoed.emplace_back(line); };
  }

  std::optional<ExitStatus> start(const std::string& line) {
    process.line = line;
    StartUp startUp(
        {state, settings, storage, services, loop, system, service, nts, instance, window});
    return startUp.run();
  }
  bool isOver(const std::string& line) { return start(line) == ExitStatus::Done; }
  std::string setting(const std::string& name) {
    return registry.GetRegString(RegistryRoot::LocalMachine, mainMod::kServerKey, name);
  }
  void set(const std::string& name, const std::string& text) {
    settings.SaveServerSetting(name, text);
  }
  /// The lines of the console, without their time stamps.
  std::vector<std::string> lines() const {
    std::vector<std::string> texts;
    for (const auto& line : echoed) texts.push_back(line.substr(9));
    return texts;
  }
  std::string lineThatBegins(const std::string& begin) const {
    for (const auto& line : lines()) {
      if (line.starts_with(begin)) return line;
    }
    return "";
  }

  FakeProcess process;
  MemoryFiles files;
  FakeClock clock;
  FakeEventLoop loop;
  CountingRandom random;
  MemorySettings storage;
  Registry registry{storage};
  ServerState state;
  mainMod settings{registry, state};
  SysInfo system{process};
  FakeServiceManager manager;
  modService service{manager, loop, clock, system};
  FakeServiceHost nts;
  FakeInstanceLock instance;
  FormModel form;
  StatusLists statusLists{state, clock, form};
  Services services{state, statusLists, clock, files, random, process};
  mainForm window{{services, loop, form, statusLists, settings}};
  std::vector<std::string> echoed;
};

TEST_F(StartUpTest, APlainRunServesHidden) {
  EXPECT_EQ(start(""), std::nullopt);
  EXPECT_TRUE(window.running());
  EXPECT_FALSE(window.form().visible);
  EXPECT_TRUE(loop.udp->isOpen());
  EXPECT_TRUE(echoed.empty());
  EXPECT_EQ(setting("Port"), "7007");
}

TEST_F(StartUpTest, DebugShowsTheWindow) {
  start("/debug");
  EXPECT_TRUE(state.DebugMode);
  EXPECT_TRUE(window.form().visible);
  EXPECT_FALSE(echoed.empty());
}

TEST_F(StartUpTest, IdleLeavesTheServerStopped) {
  EXPECT_EQ(start("/idle"), std::nullopt);
  EXPECT_FALSE(window.running());
  EXPECT_TRUE(loop.udp->isOpen());
}

TEST_F(StartUpTest, SwitchesAreFoundAnywhereInAnyCase) {
  start("xx/DEBUGyy --/NoQvm/LogHeaders");
  EXPECT_TRUE(state.DebugMode);
  EXPECT_TRUE(state.NoQvm);
  EXPECT_TRUE(state.LogHeaders);
  EXPECT_FALSE(state.IdleStart);
  EXPECT_FALSE(state.DevMode);
}

TEST_F(StartUpTest, FoldersLieUnderTheProgramsOwn) {
  start("");
  EXPECT_EQ(spelled(state.MainPath), "/program/");
  EXPECT_EQ(spelled(state.ScriptsFolder), "/program/Server/Scripts");
  EXPECT_EQ(spelled(state.CacheFolder), "/program/Server/Cache");
  EXPECT_EQ(spelled(state.LogsFolder), "/program/Server/Logs");
  EXPECT_TRUE(files.stat("/program/Server/Logs"));
  EXPECT_TRUE(files.stat("/program/Server/Cache"));
  EXPECT_FALSE(files.stat("/program/Server/Scripts"));
}

TEST_F(StartUpTest, ANumberedInstanceHasALogAndACacheOfItsOwn) {
  state.Instance = 3;
  start("");
  EXPECT_EQ(spelled(state.ScriptsFolder), "/program/Server/Scripts");
  EXPECT_EQ(spelled(state.CacheFolder), "/program/Server/Cache/3");
  EXPECT_EQ(spelled(state.LogsFolder), "/program/Server/Logs/3");
  EXPECT_TRUE(files.stat("/program/Server/Logs/3"));
  EXPECT_TRUE(files.stat("/program/Server/Cache/3"));
}

TEST_F(StartUpTest, AFreshTreeWithoutItsServerFolderIsLeftAsItIs) {
  process.folder = "/fresh";
  start("/idle");
  EXPECT_FALSE(files.stat("/fresh/Server"));
  EXPECT_FALSE(files.stat("/fresh/Server/Logs"));
}

TEST_F(StartUpTest, DeveloperModeTakesTheFolderFromTheRegistry) {
  registry.CreateRegKey(RegistryRoot::LocalMachine, mainMod::kProgramKey);
  registry.SetRegString(RegistryRoot::LocalMachine, mainMod::kProgramKey, "MainPath", "/dev");
  start("/devmode /idle");
  EXPECT_TRUE(state.DevMode);
  EXPECT_EQ(spelled(state.MainPath), "/dev/");
}

TEST_F(StartUpTest, ARelativeDeveloperFolderIsMadeAbsolute) {
  process.current = "/home";
  registry.CreateRegKey(RegistryRoot::LocalMachine, mainMod::kProgramKey);
  registry.SetRegString(RegistryRoot::LocalMachine, mainMod::kProgramKey, "MainPath", "site");
  start("/devmode /idle");
  EXPECT_EQ(spelled(state.MainPath), "/home/site/");
}

TEST_F(StartUpTest, DeveloperModeWithoutAFolderHasTheSeparatorAlone) {
  start("/devmode /idle");
  EXPECT_EQ(spelled(state.MainPath), "/");
  EXPECT_FALSE(storage.keyExists(RegistryRoot::LocalMachine, mainMod::kProgramKey));
}

TEST_F(StartUpTest, StartStartsAnInstalledServiceAndEnds) {
  EXPECT_TRUE(isOver("/start"));
  EXPECT_TRUE(manager.requests.empty());
  manager.all = {"Quorvane Server"};
  EXPECT_TRUE(isOver("/startnow"));
  EXPECT_EQ(manager.requests, std::vector<std::string>{"start Quorvane Server"});
  EXPECT_TRUE(isOver("/start"));
  EXPECT_EQ(manager.requests.size(), 1U) << "it runs already";
  EXPECT_FALSE(loop.udp->isOpen());
}

TEST_F(StartUpTest, StopStopsARunningServiceAndEnds) {
  EXPECT_TRUE(isOver("/STOP"));
  manager.all = {"Quorvane Server"};
  EXPECT_TRUE(isOver("/STOP"));
  EXPECT_TRUE(manager.requests.empty());
  manager.active = {"Quorvane Server"};
  EXPECT_TRUE(isOver("/STOP"));
  EXPECT_EQ(manager.requests, std::vector<std::string>{"stop Quorvane Server"});
}

TEST_F(StartUpTest, StartGoesBeforeEverythingElse) {
  manager.all = {"Quorvane Server"};
  EXPECT_TRUE(isOver("/install /stop /start /debug"));
  EXPECT_EQ(manager.requests, std::vector<std::string>{"start Quorvane Server"});
  EXPECT_EQ(nts.calls, "");
  EXPECT_FALSE(state.DebugMode);
}

TEST_F(StartUpTest, InstallPreparesTheServiceAndEnds) {
  EXPECT_TRUE(isOver("/install"));
  EXPECT_EQ(nts.calls, "install ");
  EXPECT_EQ(nts.serviceName, "Quorvane Server");
  EXPECT_EQ(nts.displayName, "Quorvane Server");
  EXPECT_EQ(nts.startMode, 2);
  EXPECT_EQ(nts.interactive, 0);
  EXPECT_EQ(setting("RunAsService"), "1");
  EXPECT_EQ(loop.pendingRuns, 1);
  EXPECT_FALSE(window.running());
  EXPECT_FALSE(loop.udp->isOpen());
  EXPECT_EQ(instance.asked, 0);
}

TEST_F(StartUpTest, UninstallRemovesTheService) {
  set("RunAsService", "1");
  EXPECT_TRUE(isOver("/uninstall"));
  EXPECT_EQ(nts.calls, "uninstall ");
  EXPECT_EQ(setting("RunAsService"), "0");
}

TEST_F(StartUpTest, BothTogetherInstall) {
  EXPECT_TRUE(isOver("/uninstall /install"));
  EXPECT_EQ(nts.calls, "install ");
  EXPECT_EQ(setting("RunAsService"), "1");
}

TEST_F(StartUpTest, WithoutRightsInstallDoesNothingAndEnds) {
  process.admin = false;
  EXPECT_EQ(start("/install"), ExitStatus::NoRights);
  EXPECT_EQ(start("/uninstall"), ExitStatus::NoRights);
  EXPECT_EQ(nts.calls, "");
  EXPECT_EQ(setting("RunAsService"), "0");
}

TEST_F(StartUpTest, WithoutServicesInstallDoesNothingAndEnds) {
  process.version.platform = 1;
  EXPECT_EQ(start("/install"), ExitStatus::NotDone);
  EXPECT_EQ(nts.calls, "");
  EXPECT_EQ(setting("RunAsService"), "0");
}

TEST_F(StartUpTest, AManagerThatRefusesIsTold) {
  nts.obeys = false;
  EXPECT_EQ(start("/install"), ExitStatus::NotDone);
  EXPECT_EQ(start("/uninstall"), ExitStatus::NotDone);
}

TEST_F(StartUpTest, ASystemWithoutServicesUnsetsRunAsService) {
  process.version.platform = 1;
  set("RunAsService", "1");
  EXPECT_EQ(start(""), std::nullopt);
  EXPECT_EQ(setting("RunAsService"), "0");
  EXPECT_FALSE(state.RunAsService);
  EXPECT_EQ(nts.calls, "");
  EXPECT_TRUE(window.running());
}

TEST_F(StartUpTest, ASecondInstanceEndsSilently) {
  instance.isFree = false;
  EXPECT_EQ(start("/debug"), ExitStatus::AlreadyRunning);
  EXPECT_TRUE(echoed.empty());
  EXPECT_FALSE(window.running());
  EXPECT_FALSE(loop.udp->isOpen());
}

TEST_F(StartUpTest, AServiceIsStartedByItsManager) {
  set("RunAsService", "1");
  EXPECT_EQ(start(""), std::nullopt);
  EXPECT_EQ(nts.calls, "startService ");
  EXPECT_FALSE(window.running());
  nts.started();
  EXPECT_TRUE(window.running());
  nts.stopped();
  EXPECT_FALSE(window.running());
  EXPECT_TRUE(loop.stopped);
}

TEST_F(StartUpTest, DebugRunsAServiceInstallationAsAProgram) {
  set("RunAsService", "1");
  start("/debug");
  EXPECT_EQ(nts.calls, "");
  EXPECT_TRUE(window.running());
}

TEST_F(StartUpTest, WhoeverIsNotHandedOverReportsAllTheSame) {
  window.onState = [&](const std::string& sentence) { nts.reportStatus(sentence); };
  start("");
  EXPECT_EQ(nts.reports, (std::vector<std::string>{"Serving on port 7007", "ready"}));
}

TEST_F(StartUpTest, IdleReportsToo) {
  start("/idle");
  EXPECT_EQ(nts.reports, (std::vector<std::string>{"Waiting to be started", "ready"}));
}

TEST_F(StartUpTest, AServiceInstallationStartedByHandServesAllTheSame) {
  set("RunAsService", "1");
  nts.isThere = false;
  start("");
  EXPECT_TRUE(window.running());
}

TEST_F(StartUpTest, TheBannerStandsInItsOrder) {
  start("/Debug /Idle");
  const std::string rule(73, '#');
  const auto all = lines();
  ASSERT_EQ(all.size(), 13U);
  EXPECT_EQ(all[0], rule);
  EXPECT_EQ(all[1], "Quorvane Server 1.2.3");
  EXPECT_NE(all[2], "");
  EXPECT_EQ(all[3], rule);
  EXPECT_EQ(all[4], "Running Arguments: /debug /idle");
  EXPECT_EQ(all[5], "Port:\t7007");
  EXPECT_EQ(spelled(all[6]), "Home:\t/program/Server/Scripts");
  EXPECT_EQ(spelled(all[7]), "Logs:\t/program/Server/Logs");
  EXPECT_EQ(spelled(all[8]), "Cache:\t/program/Server/Cache");
  EXPECT_EQ(all[9], "Encoding: none");
  EXPECT_EQ(all[10], "Access Control: Unrestricted");
  EXPECT_EQ(all[11], "Resource Mode: QVM");
  EXPECT_EQ(all[12], "");
}

TEST_F(StartUpTest, SettingsThatDontCountAreToldAfterTheBanner) {
  set("Port", "seven");
  start("/debug/idle");
  const auto all = lines();
  ASSERT_EQ(all.size(), 14U);
  EXPECT_EQ(all[12], "");
  EXPECT_TRUE(all[13].ends_with(
      "not taken: Port is \"seven\"; it is no port from 1 to 65534 and counts as 7007"))
      << all[13];
}

TEST_F(StartUpTest, ATakenPortIsAComplaintWhereNoLinesAreShown) {
  std::vector<std::string> complaints;
  window.status().onComplaint = [&](std::string_view text) { complaints.emplace_back(text); };
  loop.takenPorts = {7007};
  start("");
  EXPECT_EQ(complaints,
            std::vector<std::string>{"port 7007 is taken or not for this user; nothing is served"});
  start("/debug");
  EXPECT_EQ(complaints.size(), 1U);
}

TEST_F(StartUpTest, TheBannerTellsTheSettings) {
  set("EncodeStatic", "1");
  set("EncodeDynamic", "1");
  set("EncodeImages", "1");
  set("LocalAddrControl", "1");
  start("/debug/idle/noqvm");
  EXPECT_EQ(lineThatBegins("Encoding"), "Encoding: dynamic images static ");
  EXPECT_EQ(lineThatBegins("Access"), "Access Control: Local Addresses Only");
  EXPECT_EQ(lineThatBegins("Resource"), "Resource Mode: File Reader");
}

TEST_F(StartUpTest, BlanksAreACommandLineTooAndTheBannerIsLogged) {
  start("  ");
  window.closeWindow();
  std::string log;
  for (const auto& name : files.list("/program/Server/Logs")) {
    log += files.readAll("/program/Server/Logs/" + name).value();
  }
  EXPECT_TRUE(echoed.empty()) << "no debug mode, no lines in the window";
  EXPECT_NE(log.find("[10:00:00] Running Arguments:   \r\n[10:00:00] Port:\t7007\r\n"),
            std::string::npos)
      << log;
  EXPECT_TRUE(log.ends_with("[10:00:00] Server Closing\r\n"));
}

}  // namespace

}  // namespace quorvane
