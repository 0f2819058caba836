#include "cli/help_page.h"

#include <algorithm>

#include "cli/member_help.h"
#include "cli/picture_formats.h"
#include "cli/window_steps.h"

namespace orvane::cli {
namespace {

constexpr const char* kBeginning =
    R"(orvane: edits pictures from the command line, one step after the other.

usage: orvane STEP...
       orvane batch [--jobs N] [--format F] [--force] OUTDIR FILE... -- STEP...
       orvane members          lists the members of the control
       orvane help NAME        explains a member or a step
       orvane --help | --version

  orvane LoadImage photo.jpg Autolevels Sharpen -o better.jpg
  orvane LoadImage photo.jpg ImageWidth? ImageHeight? GetLHistogram
  orvane NewImage 200 100 PenColor=0x00FF0000 @view window.png
  orvane batch --format png small *.jpg -- ScaleImage 0.5 0.5

The steps run from left to right on one control, which starts empty, in a window of 640 x 480 pixels that
exists in memory only. The whole line is checked before the first step runs.

Members of the control
  Name arg ...   calls a method; it takes exactly its arguments
  Name=value     puts a property
  Name?          gets a property and prints "Name: value"

  Whole numbers are decimal or 0x..., colours 0x00BBGGRR (blue, green, red), truth values true or false, lists
  of numbers 1,2,3. Results are printed as "Name: value", no string or array as "Name: null".
  LoadFromImageArray FILE Width Height and GetImageArray FILE exchange raw bytes B, G, R, A with a file; FILE
  is - for standard input or output. While bytes go to standard output, all lines go to standard error.

Files
  -o FILE        SaveImage in the format of the extension: )";

constexpr const char* kMiddle = R"(
  -f FILE        steps from a file, - for standard input: one or more per line, a step on one line;
                 quotes and backslashes as in a shell, # starts a comment
  --force        lets -o, @view and GetImageArray overwrite a file that an earlier step reads

The window
)";

constexpr const char* kEnd = R"(
  Events are printed as they fire: event OnDropFile photo.jpg

batch runs the steps on every file, each in a control and a process of its own, and writes the results under
the same names to OUTDIR, which is created if it is missing. Files whose format cannot be written become .png.
A file that fails is named, and the others are done all the same. --jobs says how many run at a time (one per
processor unless it is given), --format bmp, jpg, gif, tif or png changes the format.

Exit status: 0 done, 1 a method answered false, 2 a line that cannot be understood, 3 a file that cannot be
read, 4 one that cannot be written. The highest counts. With 2, and for files missing from the start, nothing
has run or been written. A file whose contents are no picture is an answer of LoadImage: false, status 1 (3 in
a batch). A step that cannot read its bytes ends the run; after other failures the remaining steps run.
)";

}  // namespace

std::string helpPage() {
    std::string page = std::string(kBeginning) + knownExtensions() + kMiddle;
    for (const WindowStep& step : windowSteps()) {
        std::string form = formOf(step);
        form.resize(std::max<std::size_t>(form.size() + 1, 19), ' ');
        page += "  " + form + step.help + "\n";
    }
    return page + kEnd;
}

}  // namespace orvane::cli
