// Steps do what they say, from left to right, and the exit status tells how it went.
#include <gmock/gmock.h>

#include <filesystem>

#include <sys/stat.h>

#include "support/cli_program.h"

namespace orvane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Steps : public ProgramTest {};

TEST_F(Steps, PrintResultsInTheOrderOfTheLine) {
    const struct {
        Arguments line;
        std::string out;
    } rows[] = {
        {{"ImageWidth?", "NewImage", "0x10", "+9", "ImageWidth?", "ImageHeight?"},
         "ImageWidth: 0\nImageWidth: 16\nImageHeight: 9\n"},
        {{"IsEmpty?", "Modified?"}, "IsEmpty: true\nModified: false\n"},
        {{"PenWidth=5", "PenWidth?", "PenTransparency=0x80", "PenTransparency?"},
         "PenWidth: 5\nPenTransparency: 128\n"},
        {{"PenColor=0x00123456", "PenColor?", "PenColor=255", "PenColor?"},
         "PenColor: 0x00123456\nPenColor: 0x000000FF\n"},
        {{"FontStyleBold=1", "FontStyleBold?", "FontStyleBold=false", "FontStyleBold?"},
         "FontStyleBold: true\nFontStyleBold: false\n"},
        {{"PenStyle=-2147483648", "PenStyle?", "PenStyle=-0x10", "PenStyle?"},
         "PenStyle: -2147483648\nPenStyle: -16\n"},
        {{"TextureFileName?", "TextureFileName=a=b c.png", "TextureFileName?"},
         "TextureFileName: No texture\nTextureFileName: a=b c.png\n"},
        {{"TextureFileName=ä€😀", "TextureFileName?"}, "TextureFileName: ä€😀\n"},
        {{"TextureFileName=", "TextureFileName?"}, "TextureFileName: \n"},
        {{"FontIndex=-1", "FontName?"}, "FontName: null\n"},
        {{"Zoom?", "NewImage", "8", "8", "ZoomIn", "Zoom?"}, "Zoom: 1\nZoom: 1.1\n"},
        {{"JpegQuality=150", "JpegQuality?"}, "JpegQuality: 100\n"},
        {{"GetImageArray", "none.raw"}, "GetImageArray: null\n"},
        {{"@drop", "my photo.jpg", "@drop", "Undo"},
         "event OnDropFile my photo.jpg\nevent OnDropFile Undo\n"},
        {{"@state", "NewImage", "8", "8", "Undo", "PaintStatus=7", "@state"},
         "cursor: 0\ncaptured: false\ntimer: false\npresents: 0\n"
         "cursor: 0\ncaptured: false\ntimer: true\npresents: 3\n"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = run(row.line);
        EXPECT_EQ(result.out, row.out) << result.err;
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(files(), "");
}

TEST_F(Steps, AreReadFromFilesWithShellQuoting) {
    write("s.txt",
          "\xEF\xBB\xBF# a comment, then two steps on one line\r\n"
          "NewImage 8 6 ImageWidth?   # the rest is a comment\r\n"
          "\"TextureFileName=a \\\"b\\\" \\c\" TextureFileName? TextureFileName='it\"s'#1 "
          "\"TextureFileName?\"\n"
          "TextureFileName=a\\ b\\\\c TextureFileName? NewImage \\\n 5 \\\r\n 4\n"
          "TextureFileName='' TextureFileName?");
    const ProgramResult result = run({"-f", "s.txt", "ImageHeight?", "-f", "-"}, "ImageWidth?");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "ImageWidth: 8\nTextureFileName: a \"b\" \\c\nTextureFileName: it\"s#1\n"
              "TextureFileName: a b\\c\nTextureFileName: \nImageHeight: 4\nImageWidth: 5\n");
    write("empty.txt", "# nothing\n\n");
    EXPECT_EQ(run({"-f", "empty.txt"}).status, 0);
}

TEST_F(Steps, CarryArraysThroughFilesAndStandardStreams) {
    const std::string pixels("\x01\x02\x03\xFF\x04\x05\x06\x80\x00\x0A\x0D\xFF\x07\x08\x09\x00", 16);
    write("in.raw", pixels);
    EXPECT_EQ(run({"LoadFromImageArray", "in.raw", "2", "2", "GetImageArray", "out.raw"}).out,
              "LoadFromImageArray: true\n");
    EXPECT_EQ(read("out.raw"), pixels);

    // The bytes have standard output for themselves.
    const ProgramResult piped =
        run({"LoadFromImageArray", "-", "2", "2", "ImageWidth?", "GetImageArray", "-", "@drop", "x"}, pixels);
    EXPECT_EQ(piped.status, 0);
    EXPECT_EQ(piped.out, pixels);
    EXPECT_EQ(piped.err, "LoadFromImageArray: true\nImageWidth: 2\nevent OnDropFile x\n");

    const ProgramResult tooShort =
        run({"LoadFromImageArray", "-", "2", "3", "IsEmpty?", "GetImageArray", "new.raw"}, pixels);
    EXPECT_EQ(tooShort.status, 1);
    EXPECT_EQ(tooShort.out, "LoadFromImageArray: false\nIsEmpty: true\nGetImageArray: null\n");
    EXPECT_THAT(tooShort.err, HasSubstr("argument 2: \"-\" was not taken over: it holds 16 bytes"));
    EXPECT_FALSE(exists("new.raw"));
}

TEST_F(Steps, ExchangeListsOfNumbers) {
    std::string zeros = "GetRHistogram:";
    for (int i = 0; i < 255; ++i) zeros += " 0";
    EXPECT_EQ(run({"NewImage", "8", "6", "GetRHistogram"}).out, zeros + " 48\n");
    EXPECT_EQ(run({"GetRHistogram"}).out, "GetRHistogram: null\n");
    EXPECT_EQ(run({"NewImage", "8", "6", "UserEffect", "0,0,0,0,-0x1,0,0,0,+0", "GetRHistogram"}).status, 0);
    for (const char* kernel : {"", "1,,2", "1,2,", "1 2", "1,x", "1,2147483648"}) {
        const ProgramResult result = run({"UserEffect", kernel});
        EXPECT_EQ(result.status, 2) << kernel;
        EXPECT_THAT(result.err, HasSubstr("whole numbers with commas between")) << kernel;
    }
}

TEST_F(Steps, SaveInTheFormatOfTheExtension) {
    const struct {
        const char *name, *beginning;
    } rows[] = {
        {"a.bmp", "BM"},   {"a.JPG", "\xFF\xD8"}, {"a.jpeg", "\xFF\xD8"}, {"a.jpe", "\xFF\xD8"},
        {"a.gif", "GIF8"}, {"a.Tif", "II"},       {"a.tiff", "II"},       {"a b.png", "\x89PNG"},
    };
    for (const auto& row : rows) {
        const ProgramResult saved = run({"NewImage", "8", "6", "-o", row.name, "Modified?"});
        EXPECT_EQ(saved.out, "SaveImage: true\nModified: false\n") << row.name << saved.err;
        EXPECT_THAT(read(row.name), StartsWith(row.beginning)) << row.name;
        const ProgramResult loaded = run({"LoadImage", row.name, "ImageWidth?"});
        EXPECT_EQ(loaded.out, "LoadImage: true\nImageWidth: 8\n") << row.name << loaded.err;
    }
    // A step may read what an earlier one wrote.
    EXPECT_EQ(run({"NewImage", "5", "5", "-o", "new.png", "LoadImage", "./new.png", "ImageWidth?"}).out,
              "SaveImage: true\nLoadImage: true\nImageWidth: 5\n");
    EXPECT_EQ(run({"NewImage", "5", "5", "SaveImage", "s.bmp", "0", "LoadImage", "s.bmp"}).status, 0);
}

TEST_F(Steps, NeverOverwriteWhatWasReadUnlessForced) {
    makePicture("in.png");
    const std::string before = read("in.png");
    std::filesystem::create_symlink(path("in.png"), path("link.png"));
    std::filesystem::create_hard_link(path("in.png"), path("hard.png"));
    for (const char* name : {"in.png", "./in.png", "link.png", "hard.png"}) {
        const ProgramResult refused = run({"LoadImage", "in.png", "NewImage", "5", "5", "-o", name});
        EXPECT_EQ(refused.status, 2) << name;
        EXPECT_THAT(refused.err, HasSubstr("would overwrite")) << name;
        EXPECT_EQ(read("in.png"), before) << name;
    }
    EXPECT_EQ(run({"--force", "LoadImage", "in.png", "NewImage", "5", "5", "-o", "in.png"}).status, 0);
    EXPECT_NE(read("in.png"), before);
}

TEST_F(Steps, WriteWhatTheWindowShowedLast) {
    const ProgramResult result =
        run({"@size", "40", "30", "NewImage", "8", "6", "@view", "view.png", "@size", "20", "10", "@view",
             "same.png", "LoadImage", "view.png", "ImageWidth?", "ImageHeight?"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "LoadImage: true\nImageWidth: 40\nImageHeight: 30\n");
    EXPECT_EQ(read("view.png"), read("same.png")) << "a resize alone does not redraw";

    const ProgramResult nothing = run({"@view", "none.png", "IsEmpty?"});
    EXPECT_EQ(nothing.status, 4);
    EXPECT_THAT(nothing.err,
                HasSubstr("argument 2: \"none.png\" is not written: the window has shown nothing"));
    EXPECT_EQ(nothing.out, "IsEmpty: true\n");
}

TEST_F(Steps, AnswerFalseAndGoOn) {
    write("junk.png", "no picture");
    const ProgramResult junk = run({"NewImage", "8", "6", "LoadImage", "junk.png", "IsEmpty?"});
    EXPECT_EQ(junk.status, 1);
    EXPECT_EQ(junk.out, "LoadImage: false\nIsEmpty: true\n");
    EXPECT_THAT(junk.err, HasSubstr("argument 5: \"junk.png\" is damaged"));

    const ProgramResult empty = run({"-o", "x.png", "SaveImage", "y.png", "4", "NewImage", "4", "4",
                                     "SaveImage", "z.png", "5", "SaveImage", "no/z.png", "4", "ImageWidth?"});
    EXPECT_EQ(empty.status, 1);
    EXPECT_EQ(empty.out,
              "SaveImage: false\nSaveImage: false\nSaveImage: false\nSaveImage: false\nImageWidth: 4\n");
    EXPECT_THAT(empty.err, HasSubstr("argument 2: \"x.png\" is not written: there is no picture"));
    EXPECT_THAT(empty.err, HasSubstr("nType is 0 BMP"));
    EXPECT_THAT(empty.err, HasSubstr("no folder \"no\""));
    EXPECT_EQ(files(), "junk.png");

    const ProgramResult ignored = run({"PenWidth=9", "PenWidth?"});
    EXPECT_EQ(ignored.status, 0) << "the member takes any number";
    EXPECT_EQ(ignored.out, "PenWidth: 1\n");
    EXPECT_THAT(ignored.err,
                HasSubstr("argument 1: \"PenWidth=9\" is ignored: PenWidth takes 1 to 8 pixels"));
}

TEST_F(Steps, NoticeAnOutputThatTakesNothing) {
    const ProgramResult full = runInShell("\"$orvane\" NewImage 8 6 ImageWidth? -o x.png >/dev/full");
    EXPECT_EQ(full.status, 4);
    EXPECT_THAT(full.err, HasSubstr("standard output cannot be written: No space left"));
    EXPECT_FALSE(exists("x.png")) << "the run ends there";

    // Nobody reads: quietly.
    const ProgramResult closed =
        runInShell("{ sleep 0.2; \"$orvane\" members; echo $? >status; } | true; cat status");
    EXPECT_EQ(closed.err, "");
    EXPECT_EQ(read("status"), "4\n");

    // A picture file does not take the place of a closed stream.
    EXPECT_EQ(runInShell("\"$orvane\" NewImage 8 6 -o x.png >&- 2>&-").status, 4);
    EXPECT_EQ(run({"LoadImage", "x.png"}).status, 0);
    EXPECT_EQ(runInShell("\"$orvane\" LoadFromImageArray - 2 2 <&-").status, 3);
}

TEST_F(Steps, AnUnreadableInputEndsTheRun) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(runInShell("head -c 16 /dev/zero >pipe & \"$orvane\" LoadFromImageArray pipe 2 2").status, 0);
    // SaveImage may have been expected to make the file: it is missing only when the run gets there.
    const ProgramResult result =
        run({"SaveImage", "x.raw", "0", "LoadFromImageArray", "x.raw", "2", "2", "@drop", "never"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("argument 5: \"x.raw\" cannot be opened: No such file"));
    EXPECT_THAT(result.err, HasSubstr("the steps after it did not run"));
    EXPECT_EQ(result.out, "SaveImage: false\n");
}

}  // namespace
}  // namespace orvane
