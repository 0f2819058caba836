#pragma once

namespace orvane::studio {

class StudioWindow;

void rotateLeft(StudioWindow& window);
void rotateRight(StudioWindow& window);
void rotateHalf(StudioWindow& window);
void mirror(StudioWindow& window);
void flip(StudioWindow& window);
void scalePicture(StudioWindow& window);
void placePicture(StudioWindow& window);

}  // namespace orvane::studio
