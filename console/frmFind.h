// The main console: the program's first window, with a button for every tool. One class; the handlers of each tool are
// in a file frmFind_<tool>.cpp in the folder of that tool.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cleaners/Cache.h"
#include "console/WorkProgress.h"
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
#include "controls/StatusBar.h"
#include "finder/deletion.h"
#include "finder/junk_types.h"
#include "finder/tree_walk.h"
#include "platform/Conversions.h"
#include "platform/FolderHold.h"

class frmFind final : public controls::Form {
 public:
  frmFind();

  controls::Box layout() override;
  void prepareToShow() override;
  void gotFocus() override;
  void closeRequested() override;
  void helpRequested(const std::string& name) override;
  std::vector<controls::Control*> refuges() override;

  // ---- Shared state ------------------------------------------------------------------------------------------------

  // Asks the running scan to stop. Both abort buttons set it; the scans reset it.
  bool AbortRequested = false;
  // The user's file types, kept as long as the console.
  finder::CustomExtensions CustomExtensions;
  // Only its help file is used.
  struct {
    std::string helpFile;
  } CommonDialog1;

  // ---- Controls ----------------------------------------------------------------------------------------------------

  controls::PictureBox Picture1;

  controls::Label lblFileTools;
  controls::FlatButton cmdZero;
  controls::FlatButton cmdFurnace;
  controls::FlatButton Del_Temps;
  controls::FlatButton Del_Recycle;
  controls::Label lblPrivacyTools;
  controls::FlatButton Del_Cache;
  controls::FlatButton Del_History;
  controls::FlatButton Del_Recent;
  controls::FlatButton cmdMRU;
  controls::FlatButton cmdLists;
  controls::FlatButton cmdIndex;
  controls::Label lblSystemTools;
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

  controls::Frame Frame3;
  controls::Label Label6;
  controls::Label lblStatus;
  controls::Label lblFile;
  controls::FlatButton cmdCacheAbort;

  controls::StatusBar Status;

  // ---- Public services ---------------------------------------------------------------------------------------------

  // Shows the help topic of the control or window of that name ("cmdZero", "frmMain"), and where there is no HTML Help
  // does what the Help button does. Shell::showHelp.
  void openHelp(const std::string& name);

  // Has the shell carry out the verb `sTopic` on `sFile` on behalf of the desktop window. Numbers among the arguments
  // reach the shell as text. The shell's result is ignored. ShellExecuteA, GetDesktopWindow.
  void RunShellExecute(const std::string& sTopic, const platform::Variant& sFile, const platform::Variant& sParams,
                       const platform::Variant& sDirectory, std::int32_t nShowCmd);
  // Empties the Recycle Bin of the drive `RecycleBinDrive` ("C:\"), or of all drives when it is empty; when `Slient`
  // without a question, a progress window and a sound. Returns the shell's result, 0 on success. SHEmptyRecycleBinA.
  std::int32_t EmptyRecycleBin(const std::string& RecycleBinDrive = "", bool Slient = false);

  // Lists in ListView1 every file below `path` that matches one of `patterns`, see finder::walkTree. Adds the number of
  // files listed to `FileCount`, and stores the length in bytes of the last file in `lastLen`. Stops early when
  // AbortRequested is set.
  std::int64_t FindFilesAPI(std::string& path, const finder::ScanPatterns& patterns, std::int32_t& FileCount,
                            std::int32_t& DirCount, std::int32_t& lastLen);
  // The files that FindTemps has found, as full paths. The first is entry 1; entry 0 is never used. A walk that finds
  // nothing leaves the entries of an earlier one.
  std::vector<std::string> FoundFiles;
  // Stores every file below `path` that matches `pattern` in FoundFiles, under the number to which it raises
  // `FileCount`, and lists every folder entered in ListView2. See finder::walkTree; nothing stops it early.
  std::int64_t FindTemps(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                         std::int32_t& DirCount);
  // Lists in ListView2 the files below `path` that match `pattern` and have no bytes, except those that Windows keeps
  // empty. Adds the number of files looked at to `FileCount` and their sizes to `total`. See finder::walkTree. Stops
  // early when AbortRequested is set.
  void FindZeros(std::string& path, const std::string& pattern, std::int32_t& FileCount, std::int32_t& DirCount,
                 std::int64_t& total);
  bool IsFolder(const std::string& path) { return finder::isFolder(path); }

  // finder::isInUse; FileIsOpen also tells the user.
  bool FileIsOpen1(const std::string& path) { return finder::isInUse(path); }
  bool FileIsOpen(const std::string& path);
  void ShellDeleteOne(std::string& path, std::int32_t flags) { finder::shellDelete(path, flags); }
  // cleaners::deleteTree.
  platform::Result<void> DelTree(const std::string& path);

  // Registry access by full script paths ("HKEY_CURRENT_USER\Software\"; a closing backslash names a key).
  // `ReadWriteDelete` is one of these modes.
  static constexpr std::int16_t kReadMode = 1;
  static constexpr std::int16_t kWriteMode = 2;
  static constexpr std::int16_t kDeleteMode = 3;
  // Shows the value (read), or writes `RegistryInformation` and tells the user (write); then, in every mode, deletes
  // the value or key and tells the user, or tells that there was none. Any other failure ends it without a message.
  // WScript.Shell RegRead, RegWrite, RegDelete.
  void ReadWriteDeleteRegistry(const std::string& registrykey, const std::string& RegistryInformation,
                               std::int16_t ReadWriteDelete);
  // Asks whether the index files are to be deleted at the next start; then writes `RegistryInformation` (write only)
  // and tells the user. A failing write is reported as unhandled. WScript.Shell RegWrite.
  void ReadWriteDeleteRegistry1(const std::string& registrykey, const std::string& RegistryInformation,
                                std::int16_t ReadWriteDelete);

  // ---- Public services that no control calls -----------------------------------------------------------------------

  // finder::wipe. With more than one row in ListView1, fails with 53 after the file has been removed.
  platform::Result<void> DeleteFile(const std::string& path);
  std::int64_t FindTempsAPI(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                            std::int32_t& DirCount) {
    return FindTemps(path, pattern, FileCount, DirCount);
  }
  // Stores the value's text in `RegistryInformation` (read only), which a failure leaves unchanged. WScript.Shell
  // RegRead.
  void ReadWriteDeleteRegistry2(const std::string& registrykey, std::string& RegistryInformation,
                                std::int16_t ReadWriteDelete);

 protected:
  void formLoad() override;

 private:
  using Handler = void (frmFind::*)();

  // ---- Console shell -----------------------------------------------------------------------------------------------

  void makeFileTypeBoxes();
  void bindShell();
  // Binds a tool's handler to its button. A click that arrives while another tool's handler runs is dropped.
  void bindTool(controls::FlatButton& button, Handler handler);
  void setMnemonics();

  void cmdHelp_Click();
  void Picture1_Click();
  void cmdExit_Click();
  void requestAbort();
  void Drive1_Change();
  void cmdFurnace_Click();

  // Enables or disables what every scan disables: the tool buttons, the file types and their frames.
  void setCommandsEnabled(bool enabled);

  // ---- What the result lists share ---------------------------------------------------------------------------------

  // The two captions of a selection button, which acts by the one it shows.
  static constexpr const char* kSelectAll = "Select All";
  static constexpr const char* kClearAll = "Clear All";
  // Ticks or unticks every row by the selection button's caption, and changes the caption. Returns whether the rows are
  // ticked now; nothing when there is no row to tick, which `emptyText` has told the user.
  std::optional<bool> toggleAllRows(controls::ListView& list, controls::FlatButton& selection, const char* emptyText);
  // Inverts every row's tick, from the first to the last; the selection button's caption follows the last one.
  void invertRows(controls::ListView& list, controls::FlatButton& selection);
  // Sets "Clear All" when some row is ticked.
  static void captionByTicks(controls::FlatButton& selection, const controls::ListView& list);
  // The list's tooltip becomes the text of its selected row.
  static void showSelectedTip(controls::ListView& list);
  // Resets AbortRequested and tells the user that the scan has been aborted.
  void reportAbort();
  // Whether a list has ticked rows to delete; tells the user when it has not.
  bool anythingToDelete(const controls::ListView& list);
  // Whether a row is ticked in a list that is in front.
  bool anyTicked(const controls::ListView& list) const;
  // The result list that the user sees; null when none is shown.
  const controls::ListView* listInFront() const;
  // Whether the list is the one that the user sees. The commands of any other list find it empty.
  bool isInFront(const controls::ListView& list) const;
  // The indices of the ticked rows, ascending.
  static std::vector<std::size_t> tickedRows(const controls::ListView& list);
  static bool userConfirmsDeletion();
  // The flags of a shell deletion, to the Recycle Bin or for good as chosen now.
  std::int32_t chosenFlags() const;
  finder::DeletionQuestions deletionQuestions();

  // ---- Keyboard and About box ---------------------------------------------------------------------------------------

  // The commands of one result list.
  struct ListCommands {
    controls::ListView& list;
    controls::FlatButton& selection;
    controls::FlatButton& inversion;
    controls::FlatButton& deletion;
  };
  // Those of the list that the user sees.
  std::optional<ListCommands> commandsInFront();
  void bindKeys();
  void scanByKey();
  void abortByKey();
  void tickAllByKey();
  void invertByKey();
  void deleteByKey();
  void openParentByKey();
  void showAbout();

  // ---- Status bar and empty lists ----------------------------------------------------------------------------------

  // The last scan, or the one that runs, and what it has seen so far.
  struct ScanState {
    const controls::ListView* list = nullptr;  // that it fills; null before the first scan
    std::string folder;                        // empty for the Internet cache
    std::size_t folders = 0;
    std::size_t files = 0;
    std::size_t found = 0;  // rows at the end
    bool runs = false;
    bool aborted = false;
  };
  // To be called at the begin of a scan of `folder` that fills `list`, and at its end. The result line of an earlier
  // scan is emptied.
  void scanBegins(const controls::ListView& list, const std::string& folder);
  void scanEnds();
  // The lists show no results any more.
  void forgetScan();
  // Counts a folder that a scan has read.
  void countFolder(std::size_t files);
  std::string emptyTextOf(const controls::ListView& list) const;
  std::string statusMessage() const;
  std::vector<std::string> statusPanes() const;
  void nameVisibleCommands();
  controls::Box commandsOf(const controls::ListView& list);
  ScanState scan_;
  std::string rightsNotice_;  // see rightsNotice()
  // ---- Menus of the result lists -----------------------------------------------------------------------------------

  void bindRows();
  controls::Menu rowMenu(controls::ListView& list);
  // Ticks or unticks every row whose file is in the folder of the row's file.
  static void tickFolder(controls::ListView& list, std::size_t row, bool ticked);
  // Shows the folder in the Explorer. ShellExecuteA.
  static void openFolder(const std::string& folder);
  // Puts the texts of the selected rows on the clipboard, each in its own line.
  static void copySelected(const controls::ListView& list);

  // ---- Junk scan ---------------------------------------------------------------------------------------------------

  void bindJunkScan();
  void Scan_Click();
  void prepareScan();
  void enterScan();
  void leaveScan();
  void reportAbortedScan(std::int32_t fileCount, std::uint32_t startTick);
  void reportFinishedScan(std::int32_t fileCount, std::uint32_t startTick);
  void showResultLine(std::int32_t fileCount, std::uint32_t startTick);
  finder::ScanPatterns chosenPatterns() const;
  void Check_Click();
  void Select_Check_Click();
  void Invert_Click();
  void Select_All_Click();
  void cmdInvert_Click();
  void cmdChoose_Click();
  void ListView1_ItemCheck();
  void enableDeletionByTicks();
  void setDeletionChoiceEnabled(bool enabled);
  void setDeletionChoiceVisible(bool visible);
  // The key under which rows are compared: without outer blanks, in capitals.
  static std::string rowKey(std::string_view text);
  std::string junkRoot_;  // the folder that the listed files were found below
  platform::Links junkRootLinks_ = platform::Links::kNone;

  // ---- Deletion of junk files --------------------------------------------------------------------------------------

  void bindDelete();
  void Delete_Click();
  void optRecycle_Click();
  void optWipe_Click();
  void deleteTickedRows();
  void removeJunkRows(std::vector<std::size_t> gone);
  void wipeTickedRows();
  bool wipeRows(const std::vector<std::size_t>& chosen);

  // ---- Zero-byte files ---------------------------------------------------------------------------------------------

  void bindZeroBytes();
  void cmdZero_Click();
  void enterZeroScan();
  void leaveZeroScan();
  void reportZeroScan(std::uint32_t startTick);
  void cmdZeroDelete_Click();
  platform::Result<void> deleteTickedZeroFiles();
  void cmdSelectAll_Click();
  void cmdZeroInvert_Click();
  void ListView2_ItemCheck();
  void updateZeroDelete();
  std::string zeroRoot_;  // the folder that the listed files were found below
  platform::Links zeroRootLinks_ = platform::Links::kNone;

  // ---- Temporary folders -------------------------------------------------------------------------------------------

  void bindTempFolders();
  void Del_Temps_Click();
  // Removes every folder directly in the user's Temp folder. Stores that folder's path in `path`.
  void ClearTempSubfolders(std::string& path);
  void PurgeTempFolders();
  // Collects the files below the folders in FoundFiles. Returns the number of each folder's last file.
  std::vector<std::size_t> findTempsIn(const std::vector<std::string>& folders);
  // Deletes what findTempsIn has collected, see cleaners::deleteTempFile.
  void deleteFoundFiles(const std::vector<std::string>& folders, const std::vector<std::size_t>& ends,
                        bool (*countsAsReadOnly)(std::uint32_t attributes));

  // ---- Internet cache ----------------------------------------------------------------------------------------------

  void bindCachePage();
  void Del_Cache_Click();
  void openCachePage();
  // Fails with 13 at an entry whose last access is no date; the rows up to that one stay listed.
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
  Cache cache_;

  // ---- Tools of one click ------------------------------------------------------------------------------------------

  void bindHistory();
  void Del_History_Click();
  void Del_Recent_Click();
  void Del_Recycle_Click();

  void bindLists();
  void cmdMRU_Click();
  void cmdLists_Click();

  void bindIndexFiles();
  void cmdIndex_Click();

  void bindPrefetch();
  void cmdPrefetch_Click();

  void bindPagefile();
  void cmdSwap_Click();

  void bindRestore();
  void cmdSysrestore_Click();

  bool toolRuns_ = false;
};
