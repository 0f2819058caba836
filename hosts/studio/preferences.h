#pragma once

#include <string>

namespace orvane::studio {

class StudioWindow;

/// What people have chosen and find again the next time: appearance, panels, the size of windows. Kept in
/// orvane-studio/settings.ini in the user's configuration folder; a file that cannot be read or written is as
/// none.
class Preferences {
 public:
    Preferences();
    /// "system", "light" or "dark".
    [[nodiscard]] const std::string& appearance() const { return appearance_; }
    void setAppearance(const std::string& appearance);
    void apply(StudioWindow& window) const;
    void remember(const StudioWindow& window);

 private:
    void showAppearance() const;
    void save() const;

    std::string appearance_ = "system";
    int width_ = 1180, height_ = 800;
    bool maximized_ = false, histogram_ = true, options_ = true;
};

Preferences& preferences();

}  // namespace orvane::studio
