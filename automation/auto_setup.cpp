#include "automation/auto_setup.h"

#include "platform/dialogs.h"
#include "platform/files.h"
#include "shell/line_reader.h"

namespace tarnwell {

std::string WithBackslash(std::string folder) {
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

Status LoadAutoSetup(Files& files, const std::string& program_folder, AutoFolders& folders) {
  const std::string path = program_folder + kAutoSetupFile;
  const auto text = files.Read(path, kMostTextBytes);
  if (text.status.failure == Failure::kNotFound) return Status::Ok();
  if (!text.ok()) return text.status;
  return ApplyAutoSetupText(*text, files.Display(path), folders);
}

Status ApplyAutoSetupText(std::string_view text, const std::string& name, AutoFolders& folders) {
  LineReader lines(text, name);
  AutoFolders read;
  for (std::string& folder : read) {
    const auto line = lines.Next();
    if (!line) return lines.Missing();
    folder = WithBackslash(std::string(*line));
  }
  folders = read;
  return Status::Ok();
}

std::string AutoSetupText(const AutoFolders& folders) {
  std::string text;
  for (const std::string& folder : folders) text += folder + "\r\n";
  return text;
}

Status SaveAutoSetup(Files& files, const std::string& program_folder, const AutoFolders& folders) {
  return files.Replace(program_folder + kAutoSetupFile, AutoSetupText(folders));
}

void frmAutoSetup::BrowseClicked(int field, Dialogs& dialogs) {
  Text1[field] = dialogs.ChooseFolder(kChooserTitle, kChooserStart).value_or(Text1[field]);
}

Status frmAutoSetup::OkClicked(Files& files, const std::string& program_folder,
                               AutoFolders& folders) {
  for (std::string& text : Text1) text = WithBackslash(text);
  folders = Text1;
  return SaveAutoSetup(files, program_folder, folders);
}

}  // namespace tarnwell
