// A batch does what it can for every file, harms none, and says what failed.
#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/cli_program.h"

namespace orvane {
namespace {

using testing::HasSubstr;

class BatchRun : public ProgramTest {};

TEST_F(BatchRun, DoesTheGoodFilesAndNamesTheBadOnes) {
    makePicture("a.png");
    makePicture("b.JPG");
    makePicture("c.tif");
    write("bad.png", "\x89PNG\r\n\x1a\nno more");
    const ProgramResult result = run({"batch", "--jobs", "2", "made/out", "a.png", "bad.png", "b.JPG",
                                      "missing.png", "c.tif", "--", "NewImage", "5", "4", "ImageWidth?"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out,
              "a.png: ImageWidth: 5\nb.JPG: ImageWidth: 5\nc.tif: ImageWidth: 5\n3 done, 2 failed\n");
    EXPECT_THAT(result.err, HasSubstr("bad.png: is damaged"));
    EXPECT_THAT(result.err, HasSubstr("missing.png: does not exist"));
    EXPECT_EQ(files("made/out"), "a.png b.JPG c.tif");
    EXPECT_EQ(run({"LoadImage", "made/out/b.JPG", "ImageHeight?"}).out, "LoadImage: true\nImageHeight: 4\n");
    EXPECT_EQ(result.err.find('\r'), std::string::npos) << "a bar where there is no terminal";
}

TEST_F(BatchRun, ChangesTheFormatAndNeedsNoSteps) {
    makePicture("a.b.png");
    ASSERT_EQ(::link(path("a.b.png").c_str(), path("photo.webp").c_str()), 0);
    EXPECT_EQ(run({"batch", "out", "photo.webp", "--"}).out, "1 done, 0 failed\n");
    EXPECT_EQ(run({"batch", "--format", "jpg", "out", "a.b.png", "--"}).out, "1 done, 0 failed\n");
    EXPECT_EQ(files("out"), "a.b.jpg photo.png");
    EXPECT_THAT(read("out/a.b.jpg"), testing::StartsWith("\xFF\xD8"));
}

TEST_F(BatchRun, ReportsAnswersAndOutputsThatFailed) {
    makePicture("a.png");
    write("few.raw", "1234");
    const ProgramResult answered =
        run({"batch", "out", "a.png", "--", "LoadFromImageArray", "few.raw", "2", "2", "NewImage", "4", "4"});
    EXPECT_EQ(answered.status, 1);
    EXPECT_THAT(answered.err, HasSubstr("a.png: a member answered false"));
    EXPECT_TRUE(exists("out/a.png")) << "the remaining steps and the save run all the same";

    std::filesystem::create_directory(path("full"));
    std::filesystem::create_directory(path("full/a.png"));
    const ProgramResult blocked = run({"batch", "full", "a.png", "--"});
    EXPECT_EQ(blocked.status, 4);
    EXPECT_THAT(blocked.err, HasSubstr("\"full/a.png\" is a folder"));
    EXPECT_EQ(run({"batch", "few.raw", "a.png", "--"}).status, 4) << "OUTDIR is a file";
}

TEST_F(BatchRun, IsRefusedAsAWholeBeforeItStarts) {
    makePicture("a.png");
    makePicture("a.bmp");
    std::filesystem::create_directory(path("sub"));
    std::filesystem::copy_file(path("a.png"), path("sub/a.png"));
    const struct {
        Arguments words;
        std::vector<std::string> message;
    } rows[] = {
        {{"out", "a.png"}, {"no --", "usage: orvane batch"}},
        {{"out", "--"}, {"argument 3: \"--\"", "at least one file"}},
        {{"out", "a.png", "sub/a.png", "--"},
         {"argument 4: \"sub/a.png\" and \"a.png\" (argument 3)", "\"out/a.png\""}},
        {{"--format", "gif", "out", "a.png", "a.bmp", "--"}, {"argument 6", "\"out/a.gif\""}},
        {{".", "a.png", "--"}, {"argument 3: \"a.png\" would be overwritten", "--force"}},
        {{"--force", "sub", "a.png", "./sub/a.png", "--"}, {"argument 5", "both"}},
        {{"--force", "--format", "png", "sub", "a.bmp", "sub/a.png", "--"}, {"both"}},
        {{"--force", ".", "sub/a.png", "a.bmp", "--format", "png", "--"}, {"both"}},
        {{"--jobs", "0", "out", "a.png", "--"}, {"argument 3: \"0\""}},
        {{"--format", "webp", "out", "a.png", "--"}, {"argument 3: \"webp\""}},
        {{"--fast", "out", "a.png", "--"}, {"argument 2: \"--fast\""}},
        {{"out", "a.png", "--", "Bluur", "3"}, {"argument 5: \"Bluur\""}},
        {{"out", "a.png", "--", "-o", "x.png"}, {"argument 5", "one file for all"}},
        {{"out", "a.png", "--", "@view", "x.png"}, {"argument 5", "one file for all"}},
        {{"out", "a.png", "--", "SaveImage", "x.png", "4"}, {"argument 5", "one file for all"}},
        {{"out", "a.png", "--", "LoadFromImageArray", "-", "2", "2"}, {"argument 6", "standard input"}},
    };
    for (const auto& row : rows) {
        Arguments line = {"batch"};
        line.insert(line.end(), row.words.begin(), row.words.end());
        const ProgramResult result = run(line);
        const std::string shown = testing::PrintToString(row.words);
        EXPECT_EQ(result.status, 2) << shown << result.err;
        for (const std::string& part : row.message) EXPECT_THAT(result.err, HasSubstr(part)) << shown;
        EXPECT_EQ(files(), "a.bmp a.png sub") << shown;
    }
    // One input's result in another input's place is refused even with --force: the order would decide.
    std::filesystem::create_directory(path("other"));
    std::filesystem::create_symlink(path("a.bmp"), path("other/b.bmp"));
    makePicture("b.bmp");
    const ProgramResult crossed = run({"batch", "--force", "other", "b.bmp", "a.bmp", "--"});
    EXPECT_EQ(crossed.status, 2);
    EXPECT_THAT(crossed.err, HasSubstr("over another input, \"a.bmp\" (argument 5)"));
    EXPECT_EQ(run({"batch", "--force", ".", "a.png", "--", "NewImage", "5", "5"}).status, 0);
    EXPECT_EQ(run({"LoadImage", "a.png", "ImageWidth?"}).out, "LoadImage: true\nImageWidth: 5\n");
}

/// The first child of a process other than a former one, once there is one.
pid_t childOf(pid_t parent, pid_t former = 0) {
    const std::string name =
        "/proc/" + std::to_string(parent) + "/task/" + std::to_string(parent) + "/children";
    for (int i = 0; i < 500; ++i) {
        ::usleep(10000);
        pid_t child = 0;
        if (std::ifstream(name) >> child && child != former) return child;
    }
    return 0;
}

TEST_F(BatchRun, OutlivesAFileThatBringsItsProcessDown) {
    // Reading a pipe that nobody writes holds the first process until it is killed.
    makePicture("a.png");
    makePicture("b.png");
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const pid_t id = start(
        {"batch", "--jobs", "1", "out", "a.png", "b.png", "--", "LoadFromImageArray", "pipe", "2", "2"});
    const pid_t child = childOf(id);
    ASSERT_GT(child, 0);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_GT(childOf(id, child), 0);  // the bytes must not go to the one that dies
    runInShell("head -c 16 /dev/zero >pipe");
    int status = 0;
    ASSERT_EQ(::waitpid(id, &status, 0), id);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3) << status;
    EXPECT_EQ(files("out"), "b.png");
}

TEST_F(BatchRun, EndsItsProcessesWhenItIsStopped) {
    makePicture("a.png");
    makePicture("b.png");
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const pid_t id = start(
        {"batch", "--jobs", "2", "out", "a.png", "b.png", "--", "LoadFromImageArray", "pipe", "2", "2"});
    const pid_t child = childOf(id);
    ASSERT_GT(child, 0);
    ASSERT_EQ(::kill(id, SIGINT), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(id, &status, 0), id);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
    EXPECT_EQ(files("out"), "");
    EXPECT_EQ(::kill(child, 0), -1) << "the process still runs";
}

}  // namespace
}  // namespace orvane
