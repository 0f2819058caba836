// The line is judged as a whole: nothing runs, and the message leads to the right line.
#include <gmock/gmock.h>

#include "support/cli_program.h"

namespace orvane {
namespace {

using testing::HasSubstr;

class CommandLine : public ProgramTest {};

TEST_F(CommandLine, NamesTheArgumentItsPositionAndTheRemedy) {
    makePicture("in.png");
    write("text.txt", "PenWidth=1\n");
    const struct {
        Arguments steps;  // after NewImage 8 8 -o first.png, which must not have run
        int status;
        std::vector<std::string> message;
    } rows[] = {
        {{"Bluur", "3"}, 2, {"argument 6: \"Bluur\"", "did you mean Blur?"}},
        {{"blur", "3"}, 2, {"argument 6", "did you mean Blur?"}},
        {{"PenWidht=3"}, 2, {"argument 6", "did you mean PenWidth?"}},
        {{"@veiw", "x.png"}, 2, {"argument 6", "did you mean @view?"}},
        {{"in.png"}, 2, {"argument 6", "LoadImage FILE"}},
        {{""}, 2, {"argument 6: \"\" is not a step"}},
        {{"xyzzy\x1b[31m"}, 2, {"\"xyzzy\\x1B[31m\"", "orvane members"}},
        {{"Contrast"}, 2, {"argument 6: \"Contrast\" takes 1 argument, but none follows", "nValue  Long"}},
        {{"NewImage", "8"}, 2, {"argument 6", "takes 2 arguments, but only 1 follows", "Height"}},
        {{"NewImage", "8", "@state"}, 2, {"argument 6", "only 1 follows"}},
        {{"NewImage", "8", "PenWidth?"}, 2, {"argument 6", "only 1 follows"}},
        {{"NewImage", "8", "9", "10"},
         2,
         {"argument 9: \"10\"", "one argument too many", "NewImage (argument 6)"}},
        {{"NewImage", "8", "9.5"}, 2, {"argument 8: \"9.5\" is not a whole number", "Height"}},
        {{"NewImage", "8", "2147483648"}, 2, {"argument 8", "from -2147483648 to 2147483647"}},
        {{"NewImage", "8", "0x1FFFFFFFF"}, 2, {"argument 8"}},
        {{"NewImage", "8", " 9"}, 2, {"argument 8: \" 9\""}},
        {{"NewImage", "8", "0x"}, 2, {"argument 8"}},
        {{"NewImage", "8", "--9"}, 2, {"argument 8"}},
        {{"Gamma", "1,5"}, 2, {"argument 7: \"1,5\" is not a number", "Level"}},
        {{"Gamma", "1e999"}, 2, {"argument 7"}},
        {{"Gamma", ""}, 2, {"argument 7"}},
        {{"FontSize=256"}, 2, {"argument 6", "from 0 to 255"}},
        {{"FontStyleBold=yes"}, 2, {"argument 6", "true, false, 1 or 0"}},
        {{"PenColor=red"}, 2, {"argument 6", "0x00BBGGRR"}},
        {{"PenColor=0x100000000"}, 2, {"argument 6", "0x00BBGGRR"}},
        {{"TextureFileName=\xC3("}, 2, {"argument 6", "\\xC3(", "UTF-8"}},
        {{"PenWidth", "3"}, 2, {"argument 6", "is a property", "PenWidth=VALUE"}},
        {{"ImageWidth=3"}, 2, {"argument 6", "only be read", "ImageWidth?"}},
        {{"Undo?"}, 2, {"argument 6", "this is a method"}},
        {{"Undo=1"}, 2, {"argument 6", "this is a method"}},
        {{"@size", "8", "40000"}, 2, {"argument 8", "from 0 to 32767"}},
        {{"-x"}, 2, {"argument 6: \"-x\" is not a step"}},
        {{"-o"}, 2, {"argument 6", "path of the picture"}},
        {{"-o", "x.xyz"}, 2, {"argument 7: \"x.xyz\"", ".bmp .jpg .jpeg .jpe .gif .tif .tiff .png"}},
        {{"@view", "x"}, 2, {"argument 7", ".png"}},
        {{"-f"}, 2, {"argument 6", "step file"}},
        {{"-f", "no.txt"}, 3, {"argument 7: \"no.txt\" does not exist"}},
        {{"-f", "."}, 3, {"argument 7", "is a folder"}},
        {{"LoadImage", "no.png"}, 3, {"argument 7: \"no.png\" does not exist"}},
        {{"LoadImage", "/dev/null"}, 3, {"argument 7", "no regular file"}},
        {{"LoadFromImageArray", "no.raw", "2", "2"}, 3, {"argument 7: \"no.raw\""}},
        {{"LoadFromImageArray", "-", "2", "2", "-f", "-"}, 2, {"argument 11", "argument 7 reads already"}},
        {{"GetImageArray"}, 2, {"argument 6", "FILE"}},
        {{"GetImageArray", "no/x.raw"}, 4, {"argument 7", "no folder \"no\""}},
        {{"-o", "no/x.png"}, 4, {"argument 7: \"no/x.png\"", "no folder \"no\""}},
        {{"@view", "."}, 2, {"argument 7"}},
        {{"LoadImage", "in.png", "-o", "in.png"}, 2, {"argument 9", "LoadImage (argument 6)", "--force"}},
        {{"LoadImage", "in.png", "@view", "./in.png"}, 2, {"argument 9", "--force"}},
        {{"LoadFromImageArray", "text.txt", "2", "2", "GetImageArray", "text.txt"},
         2,
         {"argument 11", "--force"}},
    };
    for (const auto& row : rows) {
        Arguments line = {"NewImage", "8", "8", "-o", "first.png"};
        line.insert(line.end(), row.steps.begin(), row.steps.end());
        const ProgramResult result = run(line);
        const std::string shown = testing::PrintToString(row.steps);
        EXPECT_EQ(result.status, row.status) << shown << result.err;
        for (const std::string& part : row.message) EXPECT_THAT(result.err, HasSubstr(part)) << shown;
        EXPECT_EQ(result.out, "") << shown;
        EXPECT_EQ(files(), "in.png text.txt") << shown;
    }
}

TEST_F(CommandLine, NamesTheLineAndWordOfAStepFile) {
    const struct {
        std::string text;
        std::vector<std::string> message;
    } rows[] = {
        {"NewImage 8 8\n\n# a comment\n  PenWidth=1 Bluur 3\n",
         {"s.txt:4:2: \"Bluur\"", "did you mean Blur?"}},
        {"NewImage 8\n8\n", {"s.txt:1:1", "only 1 follows on its line"}},
        {"NewImage \\\n 8 x\n", {"s.txt:2:3: \"x\""}},
        {"NewImage 8 8\nTextureFileName='a\nb", {"s.txt:2:1", "quote '"}},
        {"-f s.txt\n", {"s.txt:1:1", "several -f"}},
        {"NewImage 8 8 4\n", {"s.txt:1:4", "one argument too many"}},
        {std::string("Undo\0", 5), {"s.txt", "zero byte"}},
    };
    for (const auto& row : rows) {
        write("s.txt", row.text);
        const ProgramResult result = run({"NewImage", "8", "8", "-o", "first.png", "-f", "s.txt"});
        EXPECT_EQ(result.status, 2) << row.text;
        for (const std::string& part : row.message) EXPECT_THAT(result.err, HasSubstr(part)) << row.text;
        EXPECT_EQ(files(), "s.txt") << row.text;
    }
    EXPECT_THAT(run({"-f", "-"}, "Undo\nUndoo").err, HasSubstr("standard input:2:1: \"Undoo\""));
    // An argument is not fetched from behind the end of a file.
    write("open.txt", "NewImage 8");
    EXPECT_THAT(run({"-f", "open.txt", "8"}).err, HasSubstr("open.txt:1:1"));
}

TEST_F(CommandLine, HelpComesFromTheMemberTable) {
    EXPECT_THAT(run({}).out, HasSubstr("usage: orvane STEP..."));
    EXPECT_EQ(run({}).out, run({"--help"}).out);
    EXPECT_EQ(run({"-h"}).out, run({"help"}).out);
    EXPECT_THAT(run({"--version"}).out, testing::StartsWith("orvane "));

    const std::string members = run({"members"}).out;
    EXPECT_EQ(std::count(members.begin(), members.end(), '\n'), 113);
    EXPECT_THAT(members, HasSubstr("LoadImage FileName -> Boolean"));
    EXPECT_THAT(members, HasSubstr("PenWidth=Long"));
    EXPECT_THAT(members, HasSubstr("ImageWidth? -> Long"));
    EXPECT_THAT(members, HasSubstr("LoadFromImageArray FILE Width Height -> Boolean"));

    const std::string blur = run({"help", "Blur"}).out;
    for (const char* part : {"Blur nVal", "radius in pixels", "Long", "13 (0x0D)", "method"}) {
        EXPECT_THAT(blur, HasSubstr(part));
    }
    EXPECT_THAT(run({"help", "JpegQuality"}).out, HasSubstr("0 to 100, clamped"));
    EXPECT_THAT(run({"help", "@size"}).out, HasSubstr("@size W H"));

    const ProgramResult unknown = run({"help", "Blurr"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.err, HasSubstr("argument 2: \"Blurr\""));
    EXPECT_THAT(unknown.err, HasSubstr("did you mean Blur?"));
    EXPECT_EQ(run({"members", "Blur"}).status, 2);
}

}  // namespace
}  // namespace orvane
