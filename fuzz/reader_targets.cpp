#include "reader_targets.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "components/uploads/multipart_parser.h"
#include "console/control_channel.h"
#include "http/request_collector.h"
#include "http/request_head.h"
#include "http/standard/collector.h"
#include "platform/bmp_picture.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/fake/memory_files.h"
#include "platform/gif_picture.h"
#include "platform/pictures/picture_head.h"
#include "platform/text_settings.h"
#include "require.h"
#include "startup/mainMod.h"
#include "startup/untaken_settings.h"
#include "support/clsQVMod.h"
#include "support/text.h"
#include "testing/module_builder.h"
#include "testing/recorded_lines.h"

namespace quorvane {

namespace {

using request_collector::Collected;
using request_collector::Outcome;

bool isWhole(const Collected& collected) {
  return collected.outcome == Outcome::Complete || collected.outcome == Outcome::TooLarge;
}

/// A length may be announced in the body as well, by what of it has come when the head is whole.
bool dependsOnPieces(std::string_view bytes) {
  const std::size_t announced = findNoCase(bytes, "content-length: ");
  return announced != bytes.npos && announced >= request_text::bodyStart(bytes);
}

/// A piece that looks like the beginning of another request takes the place of the first.
void requireSameInPieces(std::string_view bytes, std::size_t cut) {
  const std::string_view second = bytes.substr(cut);
  if (second.empty() || request_text::classOf(second) != RequestClass::Other) return;
  if (dependsOnPieces(bytes)) return;
  SlotRecord inOne;
  SlotRecord inTwo;
  const Collected whole = request_collector::collect(inOne, bytes);
  if (isWhole(request_collector::collect(inTwo, bytes.substr(0, cut)))) return;
  const Collected pieces = request_collector::collect(inTwo, second);
  require(isWhole(whole) == isWhole(pieces), "pieces are complete when the whole is", bytes);
  if (whole.outcome != Outcome::Complete) return;
  require(whole.request() == pieces.request(), "pieces make the same request", bytes);
  require(whole.bodyStart == pieces.bodyStart, "pieces have the same body", bytes);
  require(whole.requestClass == pieces.requestClass, "pieces are of the same class", bytes);
}

}  // namespace

void fuzzHead(std::string_view bytes) {
  RequestHead head;
  head.assign(bytes);
  require(head.text() == bytes, "the text is kept", bytes);
  const std::string line = std::string(head.method()) + ' ' + std::string(head.target()) + ' ' +
                           std::string(head.version());
  if (head.isWellFormed()) {
    require(bytes.starts_with(line + "\r\n"), "three words are the first line", bytes);
  } else {
    require(line == "  ", "without three words there are none", bytes);
  }
  require(bytes.ends_with(head.body()), "the body is the end", bytes);
  for (const RequestHead::Header& header : head.headers()) {
    require(header.name.find(':') == header.name.npos, "a name ends at its colon", bytes);
    require(!header.value.starts_with(' '), "a value begins behind its blanks", bytes);
  }
  for (const std::size_t parts : {2U, 3U, 7U}) requireSameInPieces(bytes, bytes.size() / parts);
  requireSameInPieces(bytes, bytes.size() - std::min<std::size_t>(bytes.size(), 1));
}

namespace {

/// A request that the standard's reader hands on means to every other reader what it means to it.
void requirePlain(const StandardCollector& collector, const Collected& collected,
                  std::string_view bytes) {
  RequestHead head;
  head.assign(collected.request());
  require(head.isWellFormed(), "three words are the first line", bytes);
  require(request_text::bodyStart(head.text()) == collected.bodyStart, "its head ends once", bytes);
  require(head.header("transfer-encoding").empty(), "its body is not coded", bytes);
  const std::string_view length = head.header("content-length");
  require(numericValue(length).value_or(0) == static_cast<double>(head.body().size()),
          "its body is as long as it says", bytes);
  require(head.target().starts_with('/') || head.target() == "*", "its target is a path", bytes);

  const std::string& path = collector.head().target().path;
  require(path == "*" || path.starts_with('/'), "a path begins at the root", bytes);
  require(std::none_of(path.begin(), path.end(),
                       [](char c) { return (c >= 0 && c < ' ') || c == '\\' || c == 127; }),
          "a path is of characters of names", bytes);
  for (const char* part : {"/../", "/./", "//"}) {
    require((path + '/').find(part) == path.npos || path.ends_with('/'), "it is normal", bytes);
    require(path.find(part) == path.npos, "it is normal", bytes);
  }
}

/// What is made of bytes that arrive in pieces of that size: requests as they are handed on, or why
/// one was refused.
std::vector<std::string> messagesIn(std::string_view bytes, std::size_t pieceSize) {
  StandardCollector collector;
  SlotRecord record;
  std::vector<std::string> messages;
  for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
    std::string_view piece = bytes.substr(at, pieceSize);
    do {
      const Collected collected = collector.collect(record, piece);
      piece = {};
      if (collected.outcome == Outcome::Refused) {
        const bool isHead = collected.requestClass == RequestClass::Head;
        messages.emplace_back(isHead ? "HEAD " : "").append(statusText(collected.refusal));
        return messages;
      }
      if (collected.outcome != Outcome::Complete) break;
      requirePlain(collector, collected, bytes);
      messages.emplace_back(collected.request());
    } while (record.hasNext());
    require(!record.hasNext(), "nothing is left lying", bytes);
  }
  return messages;
}

}  // namespace

std::vector<std::string> standardMessages(std::string_view bytes) {
  return messagesIn(bytes, std::max<std::size_t>(bytes.size(), 1));
}

void fuzzMessages(std::string_view bytes) {
  const auto messages = standardMessages(bytes);
  for (const std::size_t size : {1U, 2U, 7U, 100U}) {
    require(messagesIn(bytes, size) == messages, "pieces make the same requests", bytes);
  }
}

void fuzzSettings(std::string_view bytes) {
  constexpr auto kRoot = RegistryRoot::LocalMachine;
  const std::string key = mainMod::kServerKey;
  MemoryFiles files;
  files.put("/s/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server.ini", std::string(bytes));
  TextSettings storage(files, "/s");
  for (const std::string& told : untakenSettings(storage)) {
    require(std::all_of(told.begin(), told.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= ' '; }),
            "what is told is one line", bytes);
  }
  Registry registry(storage);
  ServerState state;
  mainMod settings(registry, state);
  settings.LoadSettings();
  require(state.ServerPort > 0 && state.ServerPort < 65535, "a port is one", bytes);

  const auto before = storage.lines(kRoot, key);
  require(storage.writeText(kRoot, key, "Port", std::string(bytes)), "any text can be written",
          bytes);
  const auto read = storage.read(kRoot, key, "Port");
  require(read && read->data == bytes, "what was written is read", bytes);
  const auto after = storage.lines(kRoot, key);
  require(after.size() >= before.size(), "no line is lost", bytes);
  for (std::size_t i = 0; i < before.size(); ++i) {
    const bool isPort = before[i].name && equalsNoCase(*before[i].name, "Port");
    require(before[i].name == after[i].name && (isPort || before[i].text == after[i].text),
            "other lines stay", bytes);
  }
}

namespace {

void requireAnswers(clsQVMod& modules, std::string_view bytes) {
  for (const char* path : {"/index.qvs", "/css/site.css", "/a.htm", "/", "", "a.htm"}) {
    const std::string content = modules.ModReadFile(path);
    const auto shared = modules.sharedFile(path);
    require(!shared || *shared == content, "both ways read the same", bytes);
    require(content.empty() || modules.ModFileExists(path), "what is read exists", bytes);
    require(content.size() <= (std::size_t{64} << 20), "no content is out of proportion", bytes);
  }
}

}  // namespace

void fuzzModule(std::string_view bytes) {
  const MemoryFiles none;
  for (const bool hasItsLength : {false, true}) {
    clsQVMod modules(none);
    modules.setLanguageID(1031);
    modules.loadModule(hasItsLength ? withItsLength(std::string(bytes)) : std::string(bytes));
    requireAnswers(modules, bytes);
  }
  // What is packed hides from changes, since a checksum stands behind it.
  const std::size_t half = bytes.size() / 2;
  ModuleBuilder builder{{{"/", "index.qvs", "first"},
                         {std::string(bytes.substr(0, half)), std::string(bytes.substr(half)), "x"},
                         {"/", "a.htm", std::string(bytes)}}};
  clsQVMod modules(none);
  modules.loadModule(builder.build());
  requireAnswers(modules, bytes);
  require(modules.ModReadFile("/index.qvs") == "first", "entries before a bad one stay", bytes);
}

void fuzzPicture(std::string_view bytes) {
  constexpr int kMostSide = 2000;
  constexpr std::int64_t kMostPixels = 1'000'000;
  if (const auto picture = decodeBmp(bytes, kMostSide, kMostPixels)) {
    require(picture->width > 0 && picture->width <= kMostSide, "a width is in bounds", bytes);
    require(picture->height > 0 && picture->height <= kMostSide, "a height is in bounds", bytes);
    const auto pixels = std::int64_t{picture->width} * picture->height;
    require(pixels <= kMostPixels, "a picture is in bounds", bytes);
    require(static_cast<std::int64_t>(picture->pixels.size()) == pixels * 3, "every pixel is there",
            bytes);
    const auto again = decodeBmp(encodeBmp(*picture), kMostSide, kMostPixels);
    require(again && again->pixels == picture->pixels, "what is written is read", bytes);
  }
  if (const auto head = picture_tools::readPictureHead(bytes)) {
    require(head->size.width > 0 && head->size.height > 0, "a picture has a size", bytes);
    require(head->left + head->first.width <= head->size.width &&
                head->top + head->first.height <= head->size.height,
            "the first of several lies within all", bytes);
  }
  if (firstGifPicture(bytes)) {
    require(firstGifPicture(std::string(bytes) + "more").has_value(), "more does no harm", bytes);
  }
}

namespace {

class IdleServer final : public ServerControl {
 public:
  void StartServer(bool) override { isRunning = true; }
  void StopServer() override { isRunning = false; }
  bool running() const override { return isRunning; }
  std::string uptime() const override { return "00:00:00"; }
  std::string version() const override { return "1.2.3 (Beta)"; }
  bool answersAnyAddress() const override { return false; }
  void closeWindow() override { isClosed = true; }

  bool isRunning = false;
  bool isClosed = false;
};

}  // namespace

namespace {

/// Writes down the parts of a form, and looks whether they come in their order.
class PartRecorder final : public uploads::PartReceiver {
 public:
  explicit PartRecorder(std::string_view input) : input_(input) {}

  void beginPart(uploads::PartHead head) override {
    require(!isOpen_, "a part ends before the next begins", input_);
    isOpen_ = true;
    text += head.name + '|' + head.fileName + '|' + head.contentType + (head.isFile ? "f:" : ":");
  }
  void partBytes(std::string_view bytes) override {
    require(isOpen_ && !bytes.empty(), "bytes belong to a part", input_);
    text += bytes;
  }
  void endPart() override {
    require(isOpen_, "a part has begun before it ends", input_);
    isOpen_ = false;
    text += '\0';
  }

  std::string text;

 private:
  std::string_view input_;
  bool isOpen_ = false;
};

}  // namespace

void fuzzForm(std::string_view bytes) {
  const std::size_t lineEnd = bytes.find('\n');
  const std::string boundary = uploads::MultipartParser::boundaryOf(bytes.substr(0, lineEnd));
  if (boundary.empty() || lineEnd == bytes.npos) return;
  const std::string_view body = bytes.substr(lineEnd + 1);
  PartRecorder whole(bytes);
  uploads::MultipartParser atOnce(boundary, whole);
  atOnce.take(body);
  require(whole.text.size() <= 3 * body.size() + 8, "parts are made of the body", bytes);
  for (const std::size_t length : {1, 7, 64}) {
    PartRecorder pieces(bytes);
    uploads::MultipartParser parser(boundary, pieces);
    for (std::size_t at = 0; at < body.size(); at += length) parser.take(body.substr(at, length));
    require(parser.isComplete() == atOnce.isComplete(), "pieces end where the whole does", bytes);
    require(parser.isMalformed() == atOnce.isMalformed(), "pieces fail where the whole does",
            bytes);
    if (parser.isMalformed()) continue;
    require(pieces.text == whole.text, "pieces make the same parts", bytes);
  }
}

void fuzzControl(std::string_view bytes) {
  constexpr std::array<std::string_view, 7> kCommands = {
      "[>start]", "[>stop]", "[>restart]", "[>quit]", "[?state]", "[?uptime]", "[?version]"};
  FakeEventLoop loop;
  IdleServer server;
  RecordedLines log;
  ControlChannel channel(loop, server, log);
  channel.open(std::nullopt);
  for (const std::string_view datagram : split(bytes, '\x1E')) {
    loop.udp->replies.clear();
    loop.udp->deliver(datagram, false);
    require(loop.udp->replies.empty(), "others are met with silence", bytes);
    const bool wasRunning = server.isRunning;
    loop.udp->deliver(datagram, true);
    const bool isCommand =
        std::find(kCommands.begin(), kCommands.end(), datagram) != kCommands.end();
    const bool answers = isCommand && (datagram != "[?uptime]" || wasRunning);
    require(loop.udp->replies.size() == (answers ? 1U : 0U), "commands alone are answered", bytes);
    require(!answers || loop.udp->replies[0].starts_with(std::string(datagram) + ':'),
            "an answer begins with its command", bytes);
    require(isCommand || wasRunning == server.isRunning, "nothing else has an effect", bytes);
  }
  require(log.lines.empty(), "nobody writes lines into the log", bytes);
}

}  // namespace quorvane
