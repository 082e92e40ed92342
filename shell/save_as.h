#pragma once

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// "Save As...": FileSave that asks for a name, whatever the proposed one is. The proposal is in
// force again when nothing took its place. Fails as FileSave does.
Status SaveAs(Form1& form);

}  // namespace tarnwell
