#pragma once

namespace orvane::studio {

class StudioWindow;

void newPicture(StudioWindow& window);
void openPictures(StudioWindow& window);
void savePicture(StudioWindow& window);
void savePictureAs(StudioWindow& window);
void closeWindow(StudioWindow& window);
void quit(StudioWindow& window);

}  // namespace orvane::studio
