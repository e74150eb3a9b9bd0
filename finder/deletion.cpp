#include "finder/deletion.h"

#include <array>
#include <optional>

#include "finder/modFind.h"
#include "platform/Platform.h"

namespace finder {
namespace {

static_assert(kForGood == platform::kNoConfirmation);
static_assert(kToRecycleBin == (platform::kNoConfirmation | platform::kAllowUndo));

// Every attribute but "folder".
constexpr std::uint32_t kAnyFile = 39;
// All the attributes a file may have.
constexpr std::uint32_t kInUseTestFlags = 167;
constexpr std::uint32_t kReadOnlyArchive = platform::kReadOnly | platform::kArchive;

constexpr int kWipeFileNumber = 1;
constexpr int kWritesPerValue = 10;
constexpr std::array<unsigned char, 20> kWipeValues = {0x55, 0xAA, 0x4A, 0x63, 0x47, 0x5C, 0x65, 0x70, 0x01, 0x3D,
                                                       0x61, 0x77, 0x56, 0x4F, 0x6D, 0x48, 0x5A, 0x00, 0xFF, 0xD4};

// Writes each of the twenty values ten times, one byte at a time.
platform::Result<void> overwriteStart(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  const platform::Result<void> opened = files.openBinary(kWipeFileNumber, path);
  if (!opened) return opened;
  platform::Result<void> written;
  for (std::size_t i = 0; i < kWipeValues.size() && written; ++i) {
    const char value = static_cast<char>(kWipeValues[i]);
    for (int n = 0; n < kWritesPerValue && written; ++n) written = files.putBytes(kWipeFileNumber, {&value, 1});
  }
  // Ten empty writes at the first byte end the sequence; they change nothing.
  for (int n = 0; n < kWritesPerValue && written; ++n) written = files.putBytesAt(kWipeFileNumber, 1, "");
  files.closeFile(kWipeFileNumber);
  return written;
}

// The folder entry that the system finds under that path, its name perhaps in other letters.
std::optional<platform::FindRecord> foundAt(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  platform::FindRecord record;
  const platform::Handle enumeration = files.findFirstFile(path, record);
  if (enumeration == platform::kInvalidHandle) return std::nullopt;
  files.findClose(enumeration);
  return record;
}

bool hasNameOf(const platform::FindRecord& record, const std::string& path) {
  return TrimAtNul({record.name.data(), record.name.size()}) == path.substr(path.rfind('\\') + 1);
}

// The folder entry of exactly that path.
std::optional<platform::FindRecord> entryAt(const std::string& path) {
  const std::optional<platform::FindRecord> found = foundAt(path);
  return found && hasNameOf(*found, path) ? found : std::nullopt;
}

bool isNeverWiped(std::uint32_t attributes) {
  return countsAsReadOnly(attributes) || attributes == (kReadOnlyArchive | platform::kHidden);
}

}  // namespace

bool countsAsReadOnly(std::uint32_t attributes) {
  return attributes == platform::kReadOnly || attributes == kReadOnlyArchive;
}

bool isInUse(const std::string& path) {
  return platform::machine().files().anyFileMatches(path, kAnyFile) && isLocked(path);
}

bool isLocked(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  const platform::Handle file = files.createFile(path, {.access = platform::kGenericRead,
                                                        .share = platform::kShareNone,
                                                        .disposition = platform::kOpenExisting,
                                                        .flagsAndAttributes = kInUseTestFlags});
  files.closeHandle(file);
  return file == platform::kInvalidHandle;
}

bool isGone(const std::string& path) {
  if (const std::optional<platform::FindRecord> found = foundAt(path)) return !hasNameOf(*found, path);
  // A search that fails is not yet a file that has gone.
  return platform::machine().files().getFileAttributes(path) == platform::kInvalidAttributes;
}

void shellDelete(std::string& path, std::int32_t flags) {
  path += '\0';
  platform::machine().shell().fileOperation(
      {.operation = platform::kShellDelete, .sourceList = path, .flags = static_cast<std::uint16_t>(flags)});
}

bool isDeletable(const std::string& path) {
  const std::optional<platform::FindRecord> entry = entryAt(path);
  return entry && (entry->attributes & (platform::kDirectory | platform::kDevice)) == 0;
}

bool isOverwritable(const std::string& path) {
  const std::optional<platform::FindRecord> entry = entryAt(path);
  constexpr std::uint32_t kNoPlainFile = platform::kDirectory | platform::kDevice | platform::kReparsePoint;
  return entry && (entry->attributes & kNoPlainFile) == 0;
}

platform::Result<Deletion> deleteThroughShell(const std::string& path, std::int32_t flags,
                                              const DeletionQuestions& questions) {
  const platform::Result<platform::FileObject> file = platform::machine().fileObjects().getFile(path);
  if (!file) return std::unexpected(file.error());
  if (countsAsReadOnly(file->attributes) && !questions.mayDeleteReadOnly(path)) return Deletion::kReadOnlyKept;
  // While the question was open, the path may have become a folder, which the shell would delete with all its contents.
  if (!(questions.isStillWanted ? questions.isStillWanted(path) : isDeletable(path))) return Deletion::kChanged;
  if (isLocked(path)) {
    questions.reportInUse(path);
    return Deletion::kInUse;
  }
  std::string source = path;
  shellDelete(source, flags);
  return Deletion::kDone;
}

platform::Result<Deletion> wipe(const std::string& path) {
  platform::FileObjects& objects = platform::machine().fileObjects();
  const platform::Result<platform::FileObject> file = objects.getFile(path);
  if (!file) return std::unexpected(file.error());
  if (isNeverWiped(file->attributes)) return Deletion::kReadOnlyKept;
  if (!isOverwritable(path)) return Deletion::kChanged;
  if (isLocked(path)) return Deletion::kInUse;
  if (const auto overwritten = overwriteStart(path); !overwritten) return std::unexpected(overwritten.error());
  if (const auto removed = objects.deleteFile(path, true); !removed) return std::unexpected(removed.error());
  return Deletion::kDone;
}

}  // namespace finder
