#pragma once

#include <orvane-gtk.h>

#include "studio/tools/tool_table.h"

namespace orvane::studio {

/// A field of the options bar, which is there while the present tool has a use for one of its options.
struct OptionField {
    unsigned usedBy;  ///< of ToolOptions
    GtkWidget* (*make)(OrvaneVistrel*);
};

}  // namespace orvane::studio
