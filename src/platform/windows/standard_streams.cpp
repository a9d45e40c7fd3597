#include "platform/standard_streams.h"

#include <windows.h>

#include <cstdio>

#include "platform/system.h"

namespace quorvane {

namespace {

HANDLE handleOf(StandardStream stream) {
  return ::GetStdHandle(stream == StandardStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

/// Of a pipe: room before a write would wait for its reader.
std::size_t roomIn(HANDLE handle, std::size_t wanted) {
  constexpr DWORD kPiece = 4096;  ///< as much as the smallest pipe of the system takes
  return ::GetFileType(handle) == FILE_TYPE_PIPE && wanted > kPiece ? kPiece : wanted;
}

}  // namespace

std::size_t writeAtOnce(StandardStream stream, std::string_view bytes) {
  const HANDLE handle = handleOf(stream);
  if (handle == nullptr || handle == INVALID_HANDLE_VALUE) return bytes.size();
  // A pipe that takes nothing at the moment says so only in this mode.
  const bool isPipe = ::GetFileType(handle) == FILE_TYPE_PIPE;
  DWORD waits = PIPE_WAIT;
  DWORD returnsAtOnce = PIPE_NOWAIT;
  if (isPipe) ::SetNamedPipeHandleState(handle, &returnsAtOnce, nullptr, nullptr);
  std::size_t done = 0;
  while (done < bytes.size()) {
    DWORD count = 0;
    const auto piece = static_cast<DWORD>(roomIn(handle, bytes.size() - done));
    if (!::WriteFile(handle, bytes.data() + done, piece, &count, nullptr)) {
      done = bytes.size();  // nobody will ever read it
      break;
    }
    if (count == 0) break;
    done += count;
  }
  if (isPipe) ::SetNamedPipeHandleState(handle, &waits, nullptr, nullptr);
  return done;
}

/// The C library gathers what goes to files and pipes alone, and knows no lines.
bool gatherStandardOutput() {
  constexpr std::size_t kGathered = 4096;
  const HANDLE handle = handleOf(StandardStream::Output);
  if (::GetFileType(handle) == FILE_TYPE_CHAR) std::setvbuf(stdout, nullptr, _IOFBF, kGathered);
  return isConsole(handle);
}

bool standardErrorIsTerminal() {
  return isConsole(handleOf(StandardStream::Error));
}

}  // namespace quorvane
