#include "shell/save_as.h"

#include <string>
#include <utility>

#include "imaging/file_save.h"
#include "shell/form1.h"

namespace tarnwell {

Status SaveAs(Form1& form) {
  std::string remembered = std::exchange(form.names.output_path, std::string());
  Status saved = FileSave(form, /*notify=*/false);
  if (form.names.output_path.empty()) form.names.output_path = std::move(remembered);
  return saved;
}

}  // namespace tarnwell
