#pragma once

namespace orvane::studio {

class StudioWindow;

void undo(StudioWindow& window);
void redo(StudioWindow& window);
void cut(StudioWindow& window);
void copy(StudioWindow& window);
void paste(StudioWindow& window);
void selectAll(StudioWindow& window);
void accept(StudioWindow& window);
void drop(StudioWindow& window);

}  // namespace orvane::studio
