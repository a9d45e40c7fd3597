#include "startup/setting_rules.h"

#include <algorithm>
#include <array>
#include <optional>

#include "components/components.h"
#include "platform/charset.h"
#include "script/customary/code_page.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::uint16_t kUsualPort = 7007;
constexpr std::int32_t kEndOfPorts = 65535;

/// A text that is empty stands for the default and is nothing to complain of.
bool isPlainFlag(const std::string& text) {
  return text.empty() || text == "0" || text == "1";
}

/// On only when exactly "1".
template <bool ServerState::*flag>
std::string_view takeFlag(ServerState& state, const std::string& text) {
  state.*flag = text == "1";
  return isPlainFlag(text) ? "" : "it is neither \"0\" nor \"1\" and counts as \"0\"";
}

/// Off only when exactly "0".
template <bool ServerState::*flag>
std::string_view takeUsualFlag(ServerState& state, const std::string& text) {
  state.*flag = text != "0";
  return isPlainFlag(text) ? "" : "it is neither \"0\" nor \"1\" and counts as \"1\"";
}

std::optional<std::uint32_t> wholeNumber(const std::string& text) {
  const auto number = numericLong(text);
  if (!number || *number < 0) return std::nullopt;
  return static_cast<std::uint32_t>(*number);
}

std::optional<std::uint16_t> portNumber(const std::string& text) {
  const auto number = numericLong(text);
  if (!number || *number <= 0 || *number >= kEndOfPorts) return std::nullopt;
  return static_cast<std::uint16_t>(*number);
}

std::string_view takePort(ServerState& state, const std::string& text) {
  const auto port = portNumber(text);
  state.ServerPort = port.value_or(kUsualPort);
  return port || text.empty() ? "" : "it is no port from 1 to 65534 and counts as 7007";
}

std::vector<ListenAddress> placesOf(const std::string& text, const std::string& instance) {
  return ListenAddress::parseList(replaceAll(text, "%i", instance));
}

/// Without a number the places of instances are unclear, but nothing is wrong with the text.
std::string_view takeListen(ServerState& state, const std::string& text) {
  const auto places = placesOf(text, "1");
  state.Listen = placesOf(text, state.Instance == 0 ? "%i" : std::to_string(state.Instance));
  const bool isClear = std::all_of(places.begin(), places.end(), [](const ListenAddress& where) {
    return where.kind != ListenAddress::Kind::Unclear;
  });
  return isClear ? "" : "not all of it are ports, addresses with a port or \"unix:\" with a path";
}

std::string_view takeTrustedProxies(ServerState& state, const std::string& text) {
  state.TrustedProxies = AddressRanges::parse(text);
  return state.TrustedProxies.isPartial()
             ? "not all of it are addresses, prefixes or \"unix\"; the others count"
             : "";
}

std::string_view takeControlPort(ServerState& state, const std::string& text) {
  state.ControlPort = portNumber(text);
  const bool counts = state.ControlPort || text.empty();
  return counts ? "" : "it is no port from 1 to 65534 and counts as 7008";
}

std::string_view takeLanguage(ServerState& state, const std::string& text) {
  const auto number = numericLong(text);
  state.DefaultLCID = number.value_or(0);
  return number || text.empty() ? "" : "it is no number and counts as 0";
}

constexpr std::uint32_t kUsualLogText = 2048;

std::string_view takeLogTextLimit(ServerState& state, const std::string& text) {
  const auto number = wholeNumber(text);
  state.LogTextLimit = number.value_or(kUsualLogText);
  return number || text.empty() ? "" : "it is no number of bytes and counts as 2048";
}

std::string_view takeLogFileLimit(ServerState& state, const std::string& text) {
  const auto number = wholeNumber(text);
  state.LogFileLimit = number.value_or(0);
  return number || text.empty() ? "" : "it is no number of MiB and counts as 0";
}

std::string_view takeCodePage(ServerState& state, const std::string& text) {
  const auto number = wholeNumber(text);
  const bool isKnown = number && charset::isKnown("cp" + text);
  state.JetCodePage = isKnown ? *number : 0;
  return isKnown || text.empty() ? "" : "it is no code page and counts as if it were not there";
}

/// Counts as usual unless it is a whole number.
template <std::uint32_t ServerState::*seconds>
std::string_view takeSeconds(ServerState& state, const std::string& text) {
  const auto number = wholeNumber(text);
  state.*seconds = number.value_or(ServerState().*seconds);
  return number || text.empty() ? "" : "it is no number of seconds and the default counts";
}

std::string_view takeComponents(ServerState& state, const std::string& text) {
  const auto source = componentSourceOf(text);
  state.Components = source.value_or(ComponentSource::System);
  return source || text.empty()
             ? ""
             : "it is neither \"system\", \"own\" nor \"none\" and counts as \"system\"";
}

std::string_view takeCustomary(ServerState& state, const std::string& text) {
  const bool taken = text.size() == 1 && text[0] >= '0' && text[0] <= '2';
  state.Customary = taken ? text[0] - '0' : 0;
  return taken || text.empty() ? "" : "it is neither \"0\", \"1\" nor \"2\" and counts as \"0\"";
}

std::string_view takePageCodePage(ServerState& state, const std::string& text) {
  const auto number = numericLong(text);
  const bool taken = number && customary::isCodePage(*number);
  state.PageCodePage = taken ? *number : customary::kAnsi;
  return taken || text.empty() ? "" : "no code page of that number is known; 1252 counts";
}

std::string_view takeSessionStore(ServerState& state, const std::string& text) {
  state.SessionStore = StoreAddress::of(text);
  const bool counts = state.SessionStore || text.empty();
  return counts ? "" : "it is no redis:// address and sessions stay in memory";
}

template <std::string ServerState::*member>
std::string_view takeText(ServerState& state, const std::string& text) {
  state.*member = text;
  return "";
}

constexpr std::array kRules{
    SettingRule{"LogServer", "1", takeUsualFlag<&ServerState::LogServer>},
    SettingRule{"Port", "7007", takePort},
    SettingRule{"DefaultLCID", "", takeLanguage},
    SettingRule{"EncodeStatic", "0", takeFlag<&ServerState::EncodeStatic>},
    SettingRule{"EncodeDynamic", "0", takeFlag<&ServerState::EncodeDynamic>},
    SettingRule{"EncodeImages", "0", takeFlag<&ServerState::EncodeImages>},
    SettingRule{"RunAsService", "0", takeFlag<&ServerState::RunAsService>},
    SettingRule{"LocalhostOnly", "0", takeFlag<&ServerState::LocalhostOnly>},
    SettingRule{"LocalAddrControl", "0", takeFlag<&ServerState::LocalAddrControl>},
    SettingRule{"ControlAnyAddress", "", takeFlag<&ServerState::ControlAnyAddress>},
    SettingRule{"ControlPort", "", takeControlPort},
    SettingRule{"RetryPort", "", takeFlag<&ServerState::RetryPort>},
    SettingRule{"Listen", "", takeListen},
    SettingRule{"TrustedProxies", "", takeTrustedProxies},
    SettingRule{"ProxyProtocol", "", takeFlag<&ServerState::ProxyProtocol>},
    SettingRule{"LogTextLimit", "", takeLogTextLimit},
    SettingRule{"EncodeErrors", "", takeFlag<&ServerState::EncodeErrors>},
    SettingRule{"LogPageErrors", "", takeFlag<&ServerState::LogPageErrors>},
    SettingRule{"FollowLinks", "", takeUsualFlag<&ServerState::FollowLinks>},
    SettingRule{"LogFileLimit", "", takeLogFileLimit},
    SettingRule{"DrainSeconds", "", takeSeconds<&ServerState::DrainSeconds>},
    SettingRule{"HeadSeconds", "", takeSeconds<&ServerState::HeadSeconds>},
    SettingRule{"BodySeconds", "", takeSeconds<&ServerState::BodySeconds>},
    SettingRule{"IdleSeconds", "", takeSeconds<&ServerState::IdleSeconds>},
    SettingRule{"SendSeconds", "", takeSeconds<&ServerState::SendSeconds>},
    SettingRule{"ScriptFolders", "", takeText<&ServerState::ScriptFolders>},
    SettingRule{"Components", "", takeComponents},
    SettingRule{"AllowShell", "", takeFlag<&ServerState::AllowShell>},
    SettingRule{"MailServer", "", takeText<&ServerState::MailServer>},
    SettingRule{"MailFolder", "", takeText<&ServerState::MailFolder>},
    SettingRule{"Customary", "", takeCustomary},
    SettingRule{"PageCodePage", "", takePageCodePage},
    SettingRule{"ErrorDetail", "", takeFlag<&ServerState::ErrorDetail>},
    SettingRule{"ErrorPage", "", takeText<&ServerState::ErrorPage>},
    SettingRule{"NotFoundPage", "", takeText<&ServerState::NotFoundPage>},
    SettingRule{"JetCodePage", "", takeCodePage},
    SettingRule{"SharePort", "", takeFlag<&ServerState::SharePort>},
    SettingRule{"SessionStore", "", takeSessionStore},
    SettingRule{"StandardHTTP", "", takeFlag<&ServerState::StandardHTTP>},
};

}  // namespace

std::span<const SettingRule> settingRules() {
  return kRules;
}

}  // namespace quorvane
