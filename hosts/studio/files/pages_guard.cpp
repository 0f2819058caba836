#include "studio/files/pages_guard.h"

#include <utility>

#include "studio/files/page_count.h"
#include "studio/support/answers.h"
#include "studio/support/question.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

enum Answer { kReplace = 1, kSaveAs = 2 };

GtkDialog* pagesQuestion(StudioWindow& window, FileParts parts) {
    const std::string question =
        "“" + window.picture().name() + "” has several " + (parts == FileParts::Frames ? "frames" : "pages");
    return newQuestion(window.window(), "Replace file", question, "Saving keeps only the first.",
                       {{"_Replace", kReplace, Choice::Kind::Destructive},
                        {"_Cancel", GTK_RESPONSE_CANCEL},
                        {"Save _As…", kSaveAs, Choice::Kind::Suggested}});
}

}  // namespace

void guardPages(StudioWindow& window, PagesAnswers answers) {
    const StudioPicture& picture = window.picture();
    const FileParts parts = picture.hasWrittenFile() ? FileParts::OnePicture : partsOfFile(picture.path());
    if (parts == FileParts::OnePicture) return answers.replace();
    GtkDialog* question = pagesQuestion(window, parts);
    const std::function<void(int)> answered = [answers = std::move(answers)](int answer) {
        if (answer == kReplace) answers.replace();
        if (answer == kSaveAs) answers.saveAs();
    };
    whenAnswered(question, window.whileOpen(answered));
    gtk_window_present(GTK_WINDOW(question));
}

}  // namespace orvane::studio
