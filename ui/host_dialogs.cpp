#include "ui/host_dialogs.h"

#include <memory>
#include <shlobj.h>
#include <shobjidl.h>
#include <vector>
#include <wrl/client.h>

#include "ui/look/dialog_filter.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

using Microsoft::WRL::ComPtr;

UINT IconFlag(Icon icon) {
  switch (icon) {
    case Icon::kInformation:
      return MB_ICONINFORMATION;
    case Icon::kQuestion:
      return MB_ICONQUESTION;
    case Icon::kExclamation:
      return MB_ICONEXCLAMATION;
    case Icon::kNone:
      break;
  }
  return 0;
}

// The kinds of files, with the texts that the dialog refers to.
class FileTypes {
 public:
  explicit FileTypes(const std::string& filter) : entries_(ParseFilter(filter)) {
    for (const FilterEntry& entry : entries_) {
      texts_.push_back({Wide(entry.description), Wide(entry.patterns)});
    }
    for (const Texts& texts : texts_) {
      specs_.push_back({texts.description.c_str(), texts.patterns.c_str()});
    }
  }
  void Apply(IFileDialog& dialog) const {
    if (specs_.empty()) return;
    dialog.SetFileTypes(static_cast<UINT>(specs_.size()), specs_.data());
    const std::wstring extension = Wide(DefaultExtension(entries_.front()));
    if (!extension.empty()) dialog.SetDefaultExtension(extension.c_str());
  }

 private:
  struct Texts {
    std::wstring description;
    std::wstring patterns;
  };
  std::vector<FilterEntry> entries_;
  std::vector<Texts> texts_;
  std::vector<COMDLG_FILTERSPEC> specs_;
};

std::optional<std::string> PathOf(IShellItem& item) {
  wchar_t* path = nullptr;
  if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &path))) return std::nullopt;
  std::optional<std::string> utf8 = WideToUtf8(path);
  CoTaskMemFree(path);
  return utf8;
}

// Shows the dialog, with options `more` and `without` some that it has by itself. False when the
// user cancels.
bool ShowFileDialog(IFileDialog& dialog, HWND owner, const std::string& title,
                    const std::string& filter, DWORD more, DWORD without) {
  FILEOPENDIALOGOPTIONS options = 0;
  dialog.GetOptions(&options);
  dialog.SetOptions((options & ~without) | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | more);
  dialog.SetTitle(Wide(title).c_str());
  FileTypes(filter).Apply(dialog);
  return SUCCEEDED(dialog.Show(owner));
}

struct ItemIdListDeleter {
  void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};
using ItemIdList = std::unique_ptr<ITEMIDLIST, ItemIdListDeleter>;

// Called by the folder chooser; selects the folder to start at, which lies in `start`.
int CALLBACK SelectStart(HWND chooser, UINT event, LPARAM, LPARAM start) {
  if (event == BFFM_INITIALIZED) SendMessageW(chooser, BFFM_SETSELECTIONW, TRUE, start);
  return 0;
}

std::optional<std::string> Choose(REFCLSID dialog_class, HWND owner, const std::string& title,
                                  const std::string& filter, DWORD without) {
  ComPtr<IFileDialog> dialog;
  ComPtr<IShellItem> item;
  if (FAILED(
          CoCreateInstance(dialog_class, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog))) ||
      !ShowFileDialog(*dialog.Get(), owner, title, filter, 0, without) ||
      FAILED(dialog->GetResult(&item))) {
    return std::nullopt;
  }
  return PathOf(*item.Get());
}

}  // namespace

std::vector<std::string> ChooseOpenFiles(HWND owner, const std::string& title,
                                         const std::string& filter) {
  ComPtr<IFileOpenDialog> dialog;
  ComPtr<IShellItemArray> items;
  DWORD count = 0;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(&dialog))) ||
      !ShowFileDialog(*dialog.Get(), owner, title, filter, FOS_ALLOWMULTISELECT, 0) ||
      FAILED(dialog->GetResults(&items)) || FAILED(items->GetCount(&count))) {
    return {};
  }
  std::vector<std::string> paths;
  for (DWORD i = 0; i < count; ++i) {
    ComPtr<IShellItem> item;
    if (FAILED(items->GetItemAt(i, &item))) continue;
    if (const auto path = PathOf(*item.Get())) paths.push_back(*path);
  }
  return paths;
}

Answer HostDialogs::Ask(const std::string& title, const std::string& text, Icon icon) {
  const int answer = MessageBoxW(owner(), Wide(text).c_str(), Wide(title).c_str(),
                                 MB_YESNOCANCEL | IconFlag(icon));
  if (answer == IDYES) return Answer::kYes;
  return answer == IDNO ? Answer::kNo : Answer::kCancel;
}

void HostDialogs::Tell(const std::string& title, const std::string& text, Icon icon) {
  MessageBoxW(owner(), Wide(text).c_str(), Wide(title).c_str(), MB_OK | IconFlag(icon));
}

std::string HostDialogs::AskText(const std::string& title, const std::string& prompt) {
  return ask_text(title, prompt);
}

std::optional<std::string> HostDialogs::ChooseOpenFile(const std::string& title,
                                                       const std::string& filter) {
  return Choose(CLSID_FileOpenDialog, owner(), title, filter, 0);
}

std::optional<std::string> HostDialogs::ChooseSaveFile(const std::string& title,
                                                       const std::string& filter,
                                                       TakenNames taken) {
  const DWORD without = taken == TakenNames::kLeave ? DWORD{FOS_OVERWRITEPROMPT} : 0;
  return Choose(CLSID_FileSaveDialog, owner(), title, filter, without);
}

std::optional<std::string> HostDialogs::ChooseFolder(const std::string& title,
                                                     const std::string& start) {
  const std::wstring wide_title = Wide(title);
  const std::wstring wide_start = Wide(start);
  BROWSEINFOW browse = {};
  browse.hwndOwner = owner();
  browse.lpszTitle = wide_title.c_str();
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  browse.lpfn = SelectStart;
  browse.lParam = reinterpret_cast<LPARAM>(wide_start.c_str());
  const ItemIdList chosen(SHBrowseForFolderW(&browse));
  wchar_t path[MAX_PATH] = {};
  if (!chosen || !SHGetPathFromIDListW(chosen.get(), path)) return std::nullopt;
  return WideToUtf8(path);
}

}  // namespace tarnwell
