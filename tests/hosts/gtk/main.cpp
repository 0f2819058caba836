#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "hosts/gtk/support/clipboard_peer.h"

// A warning of the toolkit is a fault of ours.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    g_log_set_always_fatal(GLogLevelFlags(G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_FATAL_MASK));
    gtk_init();
    if (orvane::test::isClipboardPeer(argc, argv)) return orvane::test::runClipboardPeer(argc, argv);
    return RUN_ALL_TESTS();
}
