// The main console: the program's first window, with a button for every tool. One class; the methods of each tool live
// in the folder of that tool.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/CheckBox.h"
#include "controls/ControlArray.h"
#include "controls/DirList.h"
#include "controls/DriveList.h"
#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListView.h"
#include "controls/PictureBox.h"
#include "platform/Conversions.h"
#include "platform/FileSystem.h"

inline constexpr std::size_t kFileTypes = 20;
inline constexpr std::size_t kCustomExtensions = 5;
inline constexpr std::size_t kScanPatterns = kFileTypes + kCustomExtensions;

// The search patterns of one junk scan, such as "*.bak". Entry i below kFileTypes belongs to file-type box i, the later
// ones to the custom extensions. An unused entry is empty.
using ScanPatternList = std::array<std::string, kScanPatterns>;

class frmFind final : public controls::Form {
 public:
  frmFind();

  controls::Box layout() override;
  void gotFocus() override;
  void closeRequested() override;

  // ---- Shared state ------------------------------------------------------------------------------------------------

  // Asks the running scan to stop. Both abort buttons set it; the scans take it back.
  bool AbortRequested = false;
  // The user's own file types, without the dot. They live as long as the console.
  std::array<std::string, kCustomExtensions> CustomExtensions;
  // The help dialog's only used property.
  struct {
    std::string helpFile;
  } CommonDialog1;

  // ---- Controls ----------------------------------------------------------------------------------------------------

  controls::PictureBox Picture1;

  controls::FlatButton cmdZero;
  controls::FlatButton cmdFurnace;
  controls::FlatButton Del_Temps;
  controls::FlatButton Del_Cache;
  controls::FlatButton Del_History;
  controls::FlatButton Del_Recent;
  controls::FlatButton Del_Recycle;
  controls::FlatButton cmdMRU;
  controls::FlatButton cmdLists;
  controls::FlatButton cmdIndex;
  controls::FlatButton cmdPrefetch;
  controls::FlatButton cmdSwap;
  controls::FlatButton cmdSysrestore;
  controls::FlatButton cmdHelp;
  controls::FlatButton cmdExit;

  controls::Label Label4;
  controls::DriveList Drive1;
  controls::Label Label1;
  controls::DirList Dir1;
  controls::FlatButton Scan;
  controls::FlatButton cmdAbort;

  controls::Frame Frame1;
  controls::Frame Specials;
  controls::ControlArray<controls::CheckBox> Check;
  controls::FlatButton Select_Check;
  controls::FlatButton Invert;
  controls::FlatButton cmdChoose;

  controls::Frame Frame2;
  controls::ListView ListView1;
  controls::ListView ListView2;
  controls::ListView lvCache;

  controls::Label lblJunkCommands;
  controls::FlatButton Select_All;
  controls::FlatButton cmdInvert;
  controls::FlatButton Delete;
  controls::CheckBox optRecycle;
  controls::CheckBox optWipe;

  controls::Label lblZeroCommands;
  controls::FlatButton cmdSelectAll;
  controls::FlatButton cmdZeroInvert;
  controls::FlatButton cmdZeroDelete;

  controls::Label lblCacheCommands;
  controls::FlatButton cmdSelect;
  controls::FlatButton cmdCacheInvert;
  controls::FlatButton cmdCleanCache;
  controls::FlatButton cmdCacheAbort;

  controls::Frame Frame3;
  controls::Label Label6;
  controls::Label lblStatus;
  controls::Label lblFile;

  // ---- Public services ---------------------------------------------------------------------------------------------

  // Has the shell carry out the verb `sTopic` on `sFile` on behalf of the desktop window. Numbers among the arguments
  // reach the shell as their text. The shell's answer is not looked at. ShellExecuteA, GetDesktopWindow.
  void RunShellExecute(const std::string& sTopic, const platform::Variant& sFile, const platform::Variant& sParams,
                       const platform::Variant& sDirectory, std::int32_t nShowCmd);

  // Walks the tree below `path` (a closing backslash is added when it lacks one) and lists every file that answers to
  // one of `patterns` in ListView1, a folder's files before those of its subfolders. `FileCount` and `DirCount` grow by
  // what was listed and entered; `lastLen` is left at the length in bytes of the last file seen. Gives the sum of the
  // sizes, in which files of 2 GB and more count wrongly. Leaves early when AbortRequested is set.
  // FindFirstFileA, FindNextFileA, FindClose, GetFileAttributesA.
  std::int64_t FindFilesAPI(std::string& path, const ScanPatternList& patterns, std::int32_t& FileCount,
                            std::int32_t& DirCount, std::int32_t& lastLen);

  // Whether a folder of that path exists. File objects' FolderExists.
  bool IsFolder(const std::string& path);

  // Whether another program holds the file at `path` open; false when there is no such file. CreateFileA.
  bool FileIsOpen1(const std::string& path);
  // The same, and tells the user so.
  bool FileIsOpen(const std::string& path);

  // Deletes one file through the shell with the flags of a shell file operation (16 bits are used). Appends a NUL to
  // `path`. The shell's answer is not looked at. SHFileOperationA.
  void ShellDeleteOne(std::string& path, std::int32_t flags);

  // Overwrites the first 200 bytes of the file at `path` in place and removes it, once for every row of ListView1: with
  // more than one row the second round finds the file gone and fails with 53. Read-only files and files in use are
  // left alone without failure. A file that cannot be opened for writing is never removed.
  platform::Result<void> DeleteFile(const std::string& path);

  // The files that FindTemps has found, as full paths under their numbers: the first is entry 1, entry 0 is never used.
  // A walk that finds nothing leaves what an earlier one has put here.
  std::vector<std::string> FoundFiles;

  // Walks the tree below `path` (a closing backslash is added when it lacks one) and puts every file that answers to
  // `pattern` into FoundFiles, under the number to which it raises `FileCount`. Every folder entered becomes a row of
  // ListView2 and counts in `DirCount`. Nothing stops it early. Gives the sum of the sizes, with the quirk of
  // FindFilesAPI. FindFirstFileA, FindNextFileA, FindClose, GetFileAttributesA.
  std::int64_t FindTemps(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                         std::int32_t& DirCount);
  // The same under the name of its siblings.
  std::int64_t FindTempsAPI(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                            std::int32_t& DirCount);

  // Walks the tree below `path` (a closing backslash is added when it lacks one) and lists in ListView2 the files that
  // answer to `pattern` and have no bytes, but for those that Windows keeps empty. `FileCount` grows by the files
  // looked at, `DirCount` by the folders entered, `total` by the sizes as FindFilesAPI counts them. Leaves early when
  // AbortRequested is set. FindFirstFileA, FindNextFileA, FindClose, GetFileAttributesA.
  void FindZeros(std::string& path, const std::string& pattern, std::int32_t& FileCount, std::int32_t& DirCount,
                 std::int64_t& total);

  // Removes the folder at `path` with everything in it, read-only files too. A link in it goes without what it points
  // to. Fails as the file objects' DeleteFolder does; what went before the failure is gone.
  platform::Result<void> DelTree(const std::string& path);

  // Registry access by full script paths ("HKEY_CURRENT_USER\Software\"; a closing backslash names a key).
  // `ReadWriteDelete` is one of these modes.
  static constexpr std::int16_t kReadMode = 1;
  static constexpr std::int16_t kWriteMode = 2;
  static constexpr std::int16_t kDeleteMode = 3;
  // Shows the value (read), or writes `RegistryInformation` and says so (write); then, in every mode, deletes the value
  // or key and says so, or that there was none. Other failures end it without a word. The script shell's RegRead,
  // RegWrite, RegDelete.
  void ReadWriteDeleteRegistry(const std::string& registrykey, const std::string& RegistryInformation,
                               std::int16_t ReadWriteDelete);
  // Asks whether the index files are to go at the next start; then writes `RegistryInformation` (write only) and says
  // so. A failing write is reported as unhandled. The script shell's RegWrite.
  void ReadWriteDeleteRegistry1(const std::string& registrykey, const std::string& RegistryInformation,
                                std::int16_t ReadWriteDelete);
  // Stores the value's text in `RegistryInformation` (read only), which is left as it was on failure. The script
  // shell's RegRead.
  void ReadWriteDeleteRegistry2(const std::string& registrykey, std::string& RegistryInformation,
                                std::int16_t ReadWriteDelete);

  // Empties the Recycle Bin of the drive `RecycleBinDrive` ("C:\"), or of all drives when it is empty; when `Slient`
  // without a question, a progress window and a sound. Gives the shell's answer: 0 on success. SHEmptyRecycleBinA.
  std::int32_t EmptyRecycleBin(const std::string& RecycleBinDrive = "", bool Slient = false);

 protected:
  void formLoad() override;

 private:
  using Handler = void (frmFind::*)();

  // ---- Console shell -----------------------------------------------------------------------------------------------

  void makeFileTypeBoxes();
  void bindShell();
  void bindJunkScan();
  // Binds a tool's handler to its button. One tool at a time: a click that comes while another tool's handler runs is
  // dropped.
  void bindTool(controls::FlatButton& button, Handler handler);
  void setMnemonics();

  void cmdHelp_Click();
  void Picture1_Click();
  void cmdExit_Click();
  void requestAbort();
  void Drive1_Change();

  // Switches everything that no scan leaves usable: the tool buttons, the file types and their frames.
  void setCommandsEnabled(bool enabled);
  // Whole seconds since the tick count was `startTick`, halves to the even one.
  static std::int32_t secondsSince(std::uint32_t startTick);

  // ---- What the commands of all lists share ------------------------------------------------------------------------

  // The two captions of a selection button, which acts by the one it shows.
  static constexpr const char* kSelectAll = "Select All";
  static constexpr const char* kClearAll = "Clear All";
  static void tickAllRows(controls::ListView& list, bool tick);
  // Flips every row's tick, from the first to the last; the selection button's caption ends up following the last.
  static void invertRows(controls::ListView& list, controls::FlatButton& selection);
  // "Clear All" says that some row is ticked.
  static void captionByTicks(controls::FlatButton& selection, const controls::ListView& list);
  // The list's tooltip becomes the text of its selected row.
  static void showSelectedTip(controls::ListView& list);

  // ---- Junk scan ---------------------------------------------------------------------------------------------------

  void Scan_Click();
  void prepareScan();
  void enterScan();
  void leaveScan();
  void reportAbortedScan(std::int32_t fileCount, std::uint32_t startTick);
  void reportFinishedScan(std::int32_t fileCount, std::uint32_t startTick);
  void showResultLine(std::int32_t fileCount, std::uint32_t startTick);
  bool anyTypeChosen() const;
  ScanPatternList scanPatterns() const;
  void Check_Click();
  void Select_Check_Click();
  void Invert_Click();
  void Select_All_Click();
  void cmdInvert_Click();
  void cmdChoose_Click();
  void ListView1_ItemCheck();
  void setDeletionChoiceEnabled(bool enabled);
  void setDeletionChoiceVisible(bool visible);

  // The numbers of one FindFilesAPI call that one file leaves to the next.
  struct SizeText {
    std::int32_t number = 0;
    const char* unit = "";
    void update(std::int32_t length);
  };
  // Under which rows are compared: without outer blanks, in capitals.
  static std::string rowKey(std::string_view text);

  // ---- Drive walks -------------------------------------------------------------------------------------------------

  // Where a walk looks whether the user wants it to stop.
  enum class AbortTest { kNowhere, kBeforeEachPattern, kBeforeEachFolderEntry };
  // What one walk does otherwise than the others. Paths are full; a folder's files come before its subfolders'.
  struct Walk {
    std::span<const std::string> patterns;  // each is a pass of its own over a folder's files; blank ones are none
    bool entersHiddenSystemFolders = true;
    AbortTest abortTest = AbortTest::kNowhere;
    bool repaintsAfterFolders = false;
    std::function<void(const std::string& folder)> onSubfolder = {};
    std::function<void()> onFilesBegin = {};
    std::function<void(const std::string& file, const std::string& name, const platform::FindRecord&)> onFile = {};
  };
  // What all walks share: gives the sum of the files' sizes and counts in `DirCount` the folders entered. An empty
  // `path` names no folder.
  std::int64_t walkTree(std::string& path, std::int32_t& DirCount, const Walk& walk);
  // The names of the folders directly in `folder` (which ends in a backslash) that the walk enters; nothing when the
  // user has stopped it.
  std::optional<std::vector<std::string>> subfoldersToEnter(const std::string& folder, std::int32_t& DirCount,
                                                            const Walk& walk);
  // Removes every folder directly in the user's Temp folder, and leaves that one's path in `path`, whatever it held.
  void ClearTempSubfolders(std::string& path);

  // ---- Deleting found files ----------------------------------------------------------------------------------------

  void Delete_Click();
  void optRecycle_Click();
  void optWipe_Click();
  void deleteThroughShell();
  void deleteRowThroughShell(const std::string& path);
  void wipeTickedRows();
  bool wipeRowByRow();
  // Whether a list has ticked rows to delete; tells the user when not.
  static bool anythingToDelete(const controls::ListView& list);
  static bool userConfirmsDeletion();
  // Whether a file with these attributes, as file objects give them, counts as read-only before a deletion.
  static bool asksBeforeDeleting(std::uint32_t attributes);
  static bool userConfirmsReadOnly(const std::string& path);
  // The flags of a shell deletion as the user has chosen it: to the Recycle Bin or for good.
  std::int32_t chosenDeletion() const;

  // ---- Zero-byte files ---------------------------------------------------------------------------------------------

  void bindZeroBytes();
  void cmdZero_Click();
  void enterZeroScan();
  void leaveZeroScan();
  void reportZeroScan(std::uint32_t startTick);
  void cmdZeroDelete_Click();
  platform::Result<void> deleteTickedZeroFiles();
  platform::Result<void> deleteZeroFile(std::size_t row);
  void cmdSelectAll_Click();
  void cmdZeroInvert_Click();
  void ListView2_ItemCheck();
  void updateZeroDelete();

  // ---- Temporary folders -------------------------------------------------------------------------------------------

  void bindTempFolders();
  void Del_Temps_Click();
  void PurgeTempFolders();
  // The folder that an environment variable names, with a closing backslash; empty when it names none that may be
  // emptied.
  static std::string tempFolder(const std::string& variable);
  // Deletes the entries 1 to `count` of FoundFiles. Before a file with attributes that `isReadOnly` accepts goes, the
  // user is asked.
  void deleteFoundFiles(std::int32_t count, bool (*isReadOnly)(std::uint32_t attributes));
  void deleteFoundFile(const std::string& path, bool (*isReadOnly)(std::uint32_t attributes));

  // ---- Shredder ----------------------------------------------------------------------------------------------------

  void bindShredder();
  void cmdFurnace_Click();

  // ---- Registry lists and system settings --------------------------------------------------------------------------

  void bindLists();
  void cmdMRU_Click();
  void cmdLists_Click();

  void bindRestartAndPrefetch();
  void cmdIndex_Click();
  void cmdPrefetch_Click();

  void bindPagefile();
  void cmdSwap_Click();

  void bindSystemRestore();
  void cmdSysrestore_Click();

  // ---- Internet cache ----------------------------------------------------------------------------------------------

  void bindCachePage();
  void Del_Cache_Click();
  void openCachePage();
  // Fails with 13 at an entry whose last access is no date; the rows up to that one stay.
  platform::Result<void> ScanCache();
  platform::Result<void> listCacheEntries();
  platform::Result<void> addCacheRow(const std::string& name);
  void abortCacheScan();
  void leaveCacheScan();
  void ShowCacheTip();
  void cmdCleanCache_Click();
  void deleteTickedCacheEntries();
  void leaveEmptyCachePage();
  void cmdSelect_Click();
  void cmdCacheInvert_Click();
  void lvCache_ItemCheck();

  // ---- History, recent documents, Recycle Bin ----------------------------------------------------------------------

  void bindHistoryRecentBin();
  void Del_History_Click();
  void Del_Recent_Click();
  void Del_Recycle_Click();

  bool toolRuns_ = false;
};
