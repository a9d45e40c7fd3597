#include "vbscript/machine/program_cache.h"

#include <algorithm>
#include <list>

#include "vbscript/compile/program.h"

namespace quorvane::vbs {

/// What compiled code takes for granted about the objects of the host: their names, and where the
/// members are.
struct HostShape {
  std::string lower;
  const void* shape = nullptr;
  bool globalMembers = false;

  friend bool operator==(const HostShape&, const HostShape&) = default;
};

struct ProgramCache::Impl {
  struct Entry {
    std::vector<HostShape> host;
    std::shared_ptr<const Program> program;
  };

  explicit Impl(std::size_t maxBytes) : maxSourceBytes(maxBytes) {}

  const Entry* find(std::string_view source, HostObjects host);
  void add(std::vector<HostShape> host, std::shared_ptr<const Program> program);

  std::size_t maxSourceBytes;
  std::size_t sourceBytes = 0;
  std::list<Entry> entries;  ///< the latest used first
  /// Keys are views of the programs' own source texts.
  std::unordered_multimap<std::string_view, std::list<Entry>::iterator> bySource;
};

namespace {

/// Nothing when code that knows these objects must not be kept: members that are looked up in
/// the global scope could be others next time.
std::optional<std::vector<HostShape>> shapesOf(HostObjects host) {
  std::vector<HostShape> shapes;
  for (const auto& object : host) {
    const void* shape = object.object->shape();
    if (!shape && object.globalMembers) return std::nullopt;
    shapes.push_back({object.lower, shape, object.globalMembers});
  }
  return shapes;
}

bool matches(const std::vector<HostShape>& shapes, HostObjects host) {
  return std::equal(shapes.begin(), shapes.end(), host.begin(), host.end(),
                    [](const HostShape& known, const HostObject& object) {
                      return known.globalMembers == object.globalMembers &&
                             known.shape == object.object->shape() && known.lower == object.lower;
                    });
}

}  // namespace

const ProgramCache::Impl::Entry* ProgramCache::Impl::find(std::string_view source,
                                                          HostObjects host) {
  const auto [first, last] = bySource.equal_range(source);
  for (auto found = first; found != last; ++found) {
    if (!matches(found->second->host, host)) continue;
    entries.splice(entries.begin(), entries, found->second);
    return &*found->second;
  }
  return nullptr;
}

void ProgramCache::Impl::add(std::vector<HostShape> host, std::shared_ptr<const Program> program) {
  const std::string_view source = program->source;
  if (source.size() > maxSourceBytes) return;
  sourceBytes += source.size();
  while (sourceBytes > maxSourceBytes) {
    const auto oldest = std::prev(entries.end());
    sourceBytes -= oldest->program->source.size();
    const auto [first, last] = bySource.equal_range(oldest->program->source);
    bySource.erase(
        std::find_if(first, last, [&](const auto& row) { return row.second == oldest; }));
    entries.erase(oldest);
  }
  entries.push_front({std::move(host), std::move(program)});
  bySource.emplace(source, entries.begin());
}

ProgramCache::ProgramCache(std::size_t maxSourceBytes)
    : impl_(std::make_unique<Impl>(maxSourceBytes)) {}

ProgramCache::~ProgramCache() = default;

std::shared_ptr<const Program> ProgramCache::get(std::string_view source, HostObjects host,
                                                 ErrorReport& error) {
  if (const auto* known = impl_->find(source, host)) return known->program;
  CompileContext context;
  context.host = host;
  try {
    auto program = compileScript(source, context);
    if (auto shapes = shapesOf(host)) impl_->add(std::move(*shapes), program);
    return program;
  } catch (const CompileError& fault) {
    error = compileErrorReport(fault, source);
    return nullptr;
  }
}

std::shared_ptr<const Program> ProgramCache::get(std::string_view source, ErrorReport& error) {
  return get(source, HostObjects(), error);
}

}  // namespace quorvane::vbs
