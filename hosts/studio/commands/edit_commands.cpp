#include "studio/commands/edit_commands.h"

#include "studio/window.h"

namespace orvane::studio {
namespace {

/// A member that does not redraw by itself, and a redraw.
void redrawAfter(OrvaneVistrel* control, void (*member)(OrvaneVistrel*)) {
    orvane_vistrel_begin_update(control);
    member(control);
    orvane_vistrel_end_update(control);
}

}  // namespace

void undo(StudioWindow& window) { window.picture().undo(); }
void redo(StudioWindow& window) { window.picture().redo(); }
void cut(StudioWindow& window) { redrawAfter(window.control(), orvane_vistrel_cut); }
void copy(StudioWindow& window) { orvane_vistrel_copy(window.control()); }
void paste(StudioWindow& window) { window.picture().paste(); }

void selectAll(StudioWindow& window) { redrawAfter(window.control(), orvane_vistrel_select_all); }

void accept(StudioWindow& window) { orvane_vistrel_accept(window.control()); }
void drop(StudioWindow& window) { orvane_vistrel_reset_track(window.control()); }

}  // namespace orvane::studio
