#pragma once

namespace orvane::studio {

class StudioWindow;

void zoomIn(StudioWindow& window);
void zoomOut(StudioWindow& window);
void actualSize(StudioWindow& window);
void fitWindow(StudioWindow& window);

void toggleOverview(StudioWindow& window);
void toggleHistogram(StudioWindow& window);
void toggleOptions(StudioWindow& window);
void toggleFullscreen(StudioWindow& window);
bool isOverviewOn(const StudioWindow& window);
bool isHistogramOn(const StudioWindow& window);
bool isOptionsOn(const StudioWindow& window);
bool isFullscreen(const StudioWindow& window);

}  // namespace orvane::studio
