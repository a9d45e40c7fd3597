#include "startup/mainMod.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::uint16_t kUsualPort = 7007;

/// A setting's place: the key, and the value's name in it.
struct Place {
  RegistryRoot root;
  std::string key;
  std::string value;
  bool inSubKey;
};

Place placeOf(const std::string& name, bool machineWide) {
  Place place{machineWide ? RegistryRoot::LocalMachine : RegistryRoot::CurrentUser,
              mainMod::kServerKey, name, false};
  const auto last = name.rfind('\\');
  if (last == std::string::npos) return place;
  place.key += "\\" + name.substr(0, last);
  place.value = name.substr(last + 1);
  place.inSubKey = true;
  return place;
}

}  // namespace

std::string mainMod::GetServerSetting(const std::string& name, const std::string& defaultText,
                                      bool machineWide) {
  const Place place = placeOf(name, machineWide);
  if (!place.inSubKey) registry_.CreateRegKey(place.root, place.key);
  std::string text = registry_.GetRegString(place.root, place.key, place.value);
  if (!text.empty() || defaultText.empty()) return text;
  registry_.CreateRegKey(place.root, place.key);
  registry_.SetRegString(place.root, place.key, place.value, defaultText);
  return defaultText;
}

void mainMod::SaveServerSetting(const std::string& name, const std::string& text,
                                bool machineWide) {
  const Place place = placeOf(name, machineWide);
  registry_.CreateRegKey(place.root, place.key);
  registry_.SetRegString(place.root, place.key, place.value, text);
}

bool mainMod::flag(const std::string& name, const std::string& defaultText) {
  return GetServerSetting(name, defaultText) == "1";
}

std::uint16_t mainMod::port() {
  const auto number = numericLong(GetServerSetting("Port", std::to_string(kUsualPort)));
  if (!number || *number <= 0 || *number >= 65535) return kUsualPort;
  return static_cast<std::uint16_t>(*number);
}

void mainMod::LoadSettings() {
  state_.LogServer = GetServerSetting("LogServer", "1") != "0";
  state_.ServerPort = port();
  state_.DefaultDocument = "index.qvs";
  state_.DefaultLCID = numericLong(GetServerSetting("DefaultLCID", "")).value_or(0);
  state_.EncodeStatic = flag("EncodeStatic");
  state_.EncodeDynamic = flag("EncodeDynamic");
  state_.EncodeImages = flag("EncodeImages");
  state_.RunAsService = flag("RunAsService");
  state_.LocalhostOnly = flag("LocalhostOnly");
  state_.LocalAddrControl = flag("LocalAddrControl");
  state_.ControlAnyAddress = flag("ControlAnyAddress", "");
}

std::string mainMod::userLanguage() const {
  return registry_.GetRegString(RegistryRoot::CurrentUser, kUserKey, "LCID");
}

std::string mainMod::developerFolder() const {
  return registry_.GetRegString(RegistryRoot::LocalMachine, kProgramKey, "MainPath");
}

}  // namespace quorvane
