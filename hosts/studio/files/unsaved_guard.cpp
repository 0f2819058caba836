#include "studio/files/unsaved_guard.h"

#include "studio/files/save_picture.h"
#include "studio/support/answers.h"
#include "studio/support/question.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

enum Answer { kDiscard = 1, kSave = 2 };

GtkDialog* unsavedQuestion(StudioWindow& window) {
    return newQuestion(window.window(), "Unsaved changes",
                       "Save the changes to “" + window.picture().name() + "”?",
                       "What is not saved will be lost.",
                       {{"_Discard", kDiscard, Choice::Kind::Destructive},
                        {"_Cancel", GTK_RESPONSE_CANCEL},
                        {"_Save", kSave, Choice::Kind::Suggested}});
}

}  // namespace

void guardUnsaved(StudioWindow& window, std::function<void()> goOn) {
    if (!window.picture().isUnsaved()) return goOn();
    GtkDialog* question = unsavedQuestion(window);
    const std::function<void(int)> answered = [&window, goOn = std::move(goOn)](int answer) {
        if (answer == kDiscard) goOn();
        if (answer == kSave) save(window, goOn);
    };
    whenAnswered(question, window.whileOpen(answered));
    gtk_window_present(GTK_WINDOW(question));
}

}  // namespace orvane::studio
