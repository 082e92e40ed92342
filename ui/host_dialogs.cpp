#include "ui/host_dialogs.h"

#include <shlobj.h>
#include <shobjidl.h>
#include <vector>
#include <wrl/client.h>

#include "ui/look/dialog_filter.h"
#include "ui/others_disabled.h"
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

int ShowBox(HWND owner, const Message& message, UINT buttons) {
  // The system itself disables the owner, and no other window.
  const OthersDisabled others(owner);
  return MessageBoxW(owner, Wide(message.text).c_str(), Wide(message.title).c_str(),
                     buttons | IconFlag(message.icon));
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

// Shows the dialog with these options more. False when the user cancels.
bool ShowFileDialog(IFileDialog& dialog, HWND owner, const std::string& title,
                    const std::string& filter, DWORD more) {
  FILEOPENDIALOGOPTIONS options = 0;
  dialog.GetOptions(&options);
  // A save dialog comes with its question about a taken name.
  options &= ~static_cast<DWORD>(FOS_OVERWRITEPROMPT);
  dialog.SetOptions(options | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | more);
  dialog.SetTitle(Wide(title).c_str());
  FileTypes(filter).Apply(dialog);
  const OthersDisabled others(owner);
  return SUCCEEDED(dialog.Show(owner));
}

// The folder as the dialogs take it; null when there is none of this path.
ComPtr<IShellItem> FolderItem(const std::string& path) {
  ComPtr<IShellItem> item;
  if (!path.empty()) {
    SHCreateItemFromParsingName(Wide(path).c_str(), nullptr, IID_PPV_ARGS(&item));
  }
  return item;
}

struct FileQuestion {
  const std::string& title;
  const std::string& filter;
  std::string first_folder;
  DWORD options = 0;
};

std::optional<std::string> Choose(REFCLSID dialog_class, HWND owner, const FileQuestion& question) {
  ComPtr<IFileDialog> dialog;
  ComPtr<IShellItem> item;
  if (FAILED(
          CoCreateInstance(dialog_class, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog)))) {
    return std::nullopt;
  }
  const ComPtr<IShellItem> folder = FolderItem(question.first_folder);
  if (folder) dialog->SetDefaultFolder(folder.Get());
  if (!ShowFileDialog(*dialog.Get(), owner, question.title, question.filter, question.options) ||
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
      !ShowFileDialog(*dialog.Get(), owner, title, filter, FOS_ALLOWMULTISELECT) ||
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

Answer HostDialogs::Ask(const Message& message) {
  const int answer = ShowBox(owner(), message, MB_YESNOCANCEL);
  if (answer == IDYES) return Answer::kYes;
  return answer == IDNO ? Answer::kNo : Answer::kCancel;
}

void HostDialogs::Tell(const Message& message) { ShowBox(owner(), message, MB_OK); }

std::string HostDialogs::AskText(const std::string& title, const std::string& prompt) {
  return ask_text(title, prompt);
}

std::optional<std::string> HostDialogs::ChooseOpenFile(const std::string& title,
                                                       const std::string& filter) {
  return Choose(CLSID_FileOpenDialog, owner(), {title, filter, first_folder()});
}

std::optional<std::string> HostDialogs::ChooseSaveFile(const std::string& title,
                                                       const std::string& filter,
                                                       TakenNames taken) {
  const DWORD question = taken == TakenNames::kAsk ? DWORD{FOS_OVERWRITEPROMPT} : 0;
  return Choose(CLSID_FileSaveDialog, owner(), {title, filter, first_folder(), question});
}

std::optional<std::string> HostDialogs::ChooseFolder(const std::string& title,
                                                     const std::string& start) {
  ComPtr<IFileDialog> dialog;
  ComPtr<IShellItem> item;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(&dialog)))) {
    return std::nullopt;
  }
  if (const ComPtr<IShellItem> folder = FolderItem(start)) dialog->SetFolder(folder.Get());
  if (!ShowFileDialog(*dialog.Get(), owner(), title, "", FOS_PICKFOLDERS) ||
      FAILED(dialog->GetResult(&item))) {
    return std::nullopt;
  }
  return PathOf(*item.Get());
}

}  // namespace tarnwell
