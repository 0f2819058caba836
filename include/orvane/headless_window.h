#pragma once

#include <cstdint>
#include <vector>

#include <orvane/export.h>
#include <orvane/window_services.h>

namespace orvane {

/// A complete window in memory: it keeps the picture last presented and remembers what it was asked. For
/// hosts without a display, and for tests.
class ORVANE_EXPORT HeadlessWindow final : public WindowServices {
 public:
    HeadlessWindow(int width = 640, int height = 480) : size_{width, height} {}

    /// The client size, which has no border. The host tells the control by ControlBase::onSize.
    void resize(int width, int height) { size_ = {width, height}; }
    void movePointer(IntPoint position) { pointer_ = position; }

    /// The picture last presented; a null view before the first. Valid until the next present.
    [[nodiscard]] PixelView picture() const {
        return {picture_.empty() ? nullptr : picture_.data(), pictureSize_.width, pictureSize_.height,
                pictureSize_.width};
    }
    [[nodiscard]] IntSize size() const { return size_; }
    [[nodiscard]] CursorId cursor() const { return cursor_; }
    [[nodiscard]] bool isCaptured() const { return captured_; }
    [[nodiscard]] bool isTimerRunning() const { return timerPeriodMs_ > 0; }
    [[nodiscard]] int timerPeriodMs() const { return timerPeriodMs_; }
    [[nodiscard]] long presents() const { return presents_; }

    void present(PixelView picture) override;
    void captureMouse() override { captured_ = true; }
    void releaseMouse() override { captured_ = false; }
    void setCursor(CursorId cursor) override { cursor_ = cursor; }
    [[nodiscard]] IntPoint pointerPosition() const override { return pointer_; }
    [[nodiscard]] IntSize outerSize() const override { return size_; }
    void startTimer(int, int periodMs) override { timerPeriodMs_ = periodMs; }
    void stopTimer(int) override { timerPeriodMs_ = 0; }

 private:
    IntSize size_, pictureSize_;
    IntPoint pointer_;
    std::vector<Argb> picture_;
    CursorId cursor_ = CursorId::Arrow;
    bool captured_ = false;
    int timerPeriodMs_ = 0;
    long presents_ = 0;
};

}  // namespace orvane
