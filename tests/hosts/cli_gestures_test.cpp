// Mouse steps: what a hand would do in a window, and what every paint mode leaves behind.
#include <gmock/gmock.h>

#include "support/cli_program.h"

namespace orvane {
namespace {

using testing::HasSubstr;

class Gestures : public ProgramTest {
 protected:
    static Arguments joined(Arguments first, const Arguments& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }
};

TEST_F(Gestures, AreRefusedWhenTheyCannotBeUnderstood) {
    const struct {
        Arguments line;
        std::string complaint;
    } rows[] = {
        {{"@press", "1"}, "takes 2 arguments, but only 1 follows"},
        {{"@press", "1", "40000"}, "is not from -32768 to 32767"},
        {{"@drag", "1", "2", "@end"}, "takes 4 arguments, but only 2 follow"},
        {{"@drag", "1", "2", "3", "4", "5", "@end"}, "\"5\" has no Y beside it"},
        {{"@drag", "1", "2", "3", "4"}, "is not closed by @end"},
        {{"@drag", "1", "2", "3", "4", "Undo"}, "is not closed by @end"},
        {{"@drag", "1", "2", "3", "x", "@end"}, "\"x\" is not a whole number"},
        {{"@tick", "0"}, "is not from 1 to 1000000"},
        {{"@tick", "x"}, "\"x\" is not a step"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = run(row.line);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(row.complaint));
    }
    EXPECT_THAT(run({"help", "@drag"}).out, HasSubstr("@drag X1 Y1 X2 Y2 [X Y ...] @end"));
    EXPECT_THAT(run({"help", "@tick"}).out, HasSubstr("@tick [N]"));
}

TEST_F(Gestures, PrintEventsAsTheyFire) {
    const ProgramResult track =
        run({"@size", "400", "300",      "NewImage", "200", "100",         "PaintStatus=21", "@drag",
             "200",   "150", "210",      "140",      "90",  "101",         "@end",           "@press",
             "300",   "20",  "@release", "300",      "20",  "PaintStatus?"});
    EXPECT_EQ(track.status, 0) << track.err;
    EXPECT_EQ(track.out,
              "event OnTrackPointMouseDown 99 49\nevent OnTrackPointMouseMove 109 39\n"
              "event OnTrackPointMouseMove -11 0\nevent OnTrackPointMouseUp -11 0\nPaintStatus: 21\n");
}

// A picture of 200 x 100 in a window of 400 x 300 is shown at (101, 101).
TEST_F(Gestures, LeaveHistoryModeCursorCaptureAndTimerRight) {
    const Arguments begin = {"@size", "400", "300", "NewImage", "200", "100"};
    const Arguments end = {"UndoEnable?", "PaintStatus?", "@state"};
    const auto state = [](bool undo, int mode, int cursor, bool captured, bool timer) {
        const auto text = [](bool value) { return std::string(value ? "true" : "false"); };
        return "UndoEnable: " + text(undo) + "\nPaintStatus: " + std::to_string(mode) +
               "\ncursor: " + std::to_string(cursor) + "\ncaptured: " + text(captured) +
               "\ntimer: " + text(timer) + "\npresents: ";
    };
    const Arguments box = {"@drag", "120", "120", "200", "160", "@end"};
    const Arguments clicks = {"@drag", "120", "120",  "120",   "120", "@end", "@drag", "200", "120",
                              "200",   "120", "@end", "@drag", "160", "180",  "160",   "180", "@end"};
    const Arguments moreClicks = {"@drag", "210", "190",  "210",   "190", "@end", "@drag", "180", "150",
                                  "180",   "150", "@end", "@drag", "130", "180",  "130",   "180", "@end"};
    const struct {
        int mode;
        Arguments gesture;
        int handleX, handleY, handleCursor;  ///< where a pending figure can be taken hold of
    } rows[] = {
        {1, box, 120, 120, 6},    {2, clicks, 200, 120, 6},
        {4, clicks, 160, 180, 6}, {5, clicks, 160, 180, 6},
        {6, box, 160, 160, 1},    {8, box, 200, 140, 2},
        {9, box, 200, 120, 4},    {10, clicks, 120, 120, 6},
        {11, box, 120, 120, 3},   {13, joined(clicks, moreClicks), 130, 180, 6},
    };
    for (const auto& row : rows) {
        Arguments line = joined(begin, {"PaintStatus=" + std::to_string(row.mode)});
        const ProgramResult pending = run(joined(joined(line, row.gesture), end));
        EXPECT_THAT(pending.out, testing::StartsWith(state(false, row.mode, 0, false, false))) << row.mode;

        const std::string x = std::to_string(row.handleX), y = std::to_string(row.handleY);
        line = joined(joined(line, row.gesture), {"@move", x, y});
        const ProgramResult hovering = run(joined(line, end));
        EXPECT_THAT(hovering.out, testing::StartsWith(state(false, row.mode, row.handleCursor, true, false)))
            << row.mode;

        line = joined(line, {"@move", "5", "5", "Accept"});
        const ProgramResult accepted = run(joined(line, end));
        EXPECT_THAT(accepted.out, testing::StartsWith(state(true, row.mode, 0, false, false))) << row.mode;
        EXPECT_THAT(run(joined(joined(line, {"Accept", "Undo"}), end)).out,
                    testing::StartsWith(state(false, row.mode, 0, false, false)))
            << "one step, and nothing is left to accept, mode " << row.mode;
    }

    const struct {
        int mode, cursor;
        bool timer;
    } freehand[] = {{3, 8, false}, {7, 9, true}, {12, 7, false}, {15, 7, false}};
    for (const auto& row : freehand) {
        const Arguments line = joined(joined(begin, {"PaintStatus=" + std::to_string(row.mode)}), box);
        EXPECT_THAT(run(joined(joined(line, {"@move", "50", "50"}), end)).out,
                    testing::StartsWith(state(true, row.mode, row.cursor, true, row.timer)))
            << row.mode;
        EXPECT_THAT(run(joined(joined(line, {"@move", "50", "50", "@move", "-1", "50", "Undo"}), end)).out,
                    testing::StartsWith(state(false, row.mode, 0, false, row.timer)))
            << row.mode;
    }
}

// What the panels and the placed boxes leave behind, and which events they fire. The picture of 200 x 100 is
// shown at (151, 101) here.
TEST_F(Gestures, TurnCropSelectAndScroll) {
    const struct {
        const char* name;
        Arguments line;
        std::string out;
    } rows[] = {
        {"crop",
         {"NewImage", "200", "100", "PaintStatus=17", "@drag", "181", "121", "220", "150", "@end", "@move",
          "181", "121", "@state", "Accept", "ImageWidth?", "ImageHeight?", "UndoEnable?"},
         "cursor: 3\ncaptured: true\ntimer: false\npresents: 4\nImageWidth: 40\nImageHeight: 30\n"
         "UndoEnable: true\n"},
        {"selection",
         {"NewImage",
          "200",
          "100",
          "PaintStatus=18",
          "CopyCutAvailable?",
          "@drag",
          "181",
          "121",
          "220",
          "150",
          "@end",
          "CopyCutAvailable?",
          "@tick",
          "3",
          "Copy",
          "UndoEnable?",
          "Cut",
          "UndoEnable?",
          "CopyCutAvailable?",
          "Paste",
          "PaintStatus?",
          "@state",
          "IsClipboardAvailable?"},
         "CopyCutAvailable: false\nCopyCutAvailable: true\nUndoEnable: false\nUndoEnable: true\n"
         "CopyCutAvailable: false\nPaintStatus: 16\ncursor: 0\ncaptured: false\ntimer: false\npresents: 8\n"
         "IsClipboardAvailable: true\n"},
        {"red-eye",
         {"NewImage", "200", "100", "PaintStatus=19", "@drag", "181", "121", "220", "150", "@end",
          "UndoEnable?", "@state"},
         "UndoEnable: true\ncursor: 0\ncaptured: false\ntimer: false\npresents: 4\n"},
        {"text",
         {"NewImage", "200",  "100",    "DrawString", "Lake", "PaintStatus?", "@move",
          "160",      "110",  "@state", "@drag",      "110",  "110",          "150",
          "130",      "@end", "Accept", "Accept",     "Undo", "UndoEnable?"},
         "PaintStatus: 14\ncursor: 5\ncaptured: true\ntimer: false\npresents: 2\nUndoEnable: false\n"},
        {"rotation, cancelled",
         {"NewImage",   "200", "100", "PaintStatus=20", "@press", "220", "262",
          "@move",      "0",   "0",   "@release",       "0",      "0",   "UndoEnable?",
          "@press",     "440", "260", "@release",       "440",    "260", "PaintStatus?",
          "UndoEnable?"},
         "UndoEnable: false\nevent OnHitCancelRotate\nPaintStatus: 0\nUndoEnable: false\n"},
        {"rotation, applied",
         {"NewImage",    "200",        "100",      "PaintStatus=20",
          "@press",      "220",        "262",      "@move",
          "400",         "0",          "@release", "0",
          "0",           "@press",     "370",      "260",
          "@release",    "370",        "260",      "PaintStatus?",
          "ImageWidth?", "UndoEnable?"},
         "event OnHitApplyRotate\nPaintStatus: 0\nImageWidth: 200\nUndoEnable: true\n"},
        {"scroll window",
         {"@size", "300", "200", "NewImage", "400", "200", "ScrollWindowVisible?", "@press", "285", "105",
          "ScrollWindowVisible?", "@release", "285", "105", "ScrollWindowVisible?"},
         "ScrollWindowVisible: true\nevent OnHitCloseScrollWindow\nScrollWindowVisible: true\n"
         "ScrollWindowVisible: false\n"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = run(joined({"@size", "500", "300"}, row.line));
        EXPECT_EQ(result.out, row.out) << row.name << result.err;
        EXPECT_EQ(result.status, 0) << row.name;
    }
}

}  // namespace
}  // namespace orvane
