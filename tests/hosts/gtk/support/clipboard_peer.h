#pragma once

#include <string>
#include <vector>

#include <gio/gio.h>

namespace orvane::test {

/// Another program at the same clipboard: this test program once more, which knows GTK's clipboard but not
/// the widget. It goes with the object.
class ClipboardPeer {
 public:
    struct File {
        std::string mimeType, path;
    };
    /// Puts the files on the clipboard, in this order, and serves them.
    static ClipboardPeer offering(const std::vector<File>& files);
    /// Waits for the clipboard to offer that type, and writes what it then gets to the path.
    static ClipboardPeer taking(const File& file);

    ~ClipboardPeer();
    ClipboardPeer(const ClipboardPeer&) = delete;
    ClipboardPeer& operator=(const ClipboardPeer&) = delete;

    /// When this returns, the peer does nothing any more, and does not answer, until it is resumed.
    void suspend();
    void resume();
    /// Lets this program's main loop run until the other one has ended; whether it succeeded.
    [[nodiscard]] bool hasSucceeded();

 private:
    ClipboardPeer(const char* task, const std::vector<File>& files);
    /// Returns when the peer has come to that state.
    void signal(int number, int awaited);
    GSubprocess* process_;
};

/// The other program, when the command line asks for it.
[[nodiscard]] bool isClipboardPeer(int argc, char** argv);
int runClipboardPeer(int argc, char** argv);

}  // namespace orvane::test
