#include "media/commands.h"

#include <gtest/gtest.h>

namespace vorla::media {
namespace {

TEST(MediaCommands, AreWrittenToTheLetter) {
    const struct {
        Text command;
        TextView expected;
    } rows[] = {{openFile(L"C:\\A B.WAV", L"SonWav"), L"open MPEGVideo!C:\\A B.WAV alias SonWav"},
                {openFile(L"", L""), L"open MPEGVideo! alias "},
                {openFile(L"F", L"X", 65664), L"open MPEGVideo!F alias X parent 65664 style 1073741824"},
                {openFile(L"F", L"X", -2), L"open MPEGVideo!F alias X parent -2 style 1073741824"},
                {openDisc(L"D:\\", L"QZCDPlay"), L"open D:\\ type cdaudio alias QZCDPlay"},
                {close(L"X"), L"close X"},
                {closeCapital(L"X"), L"Close X"},
                {stop(L"X"), L"stop X"},
                {stopCapital(L"X"), L"Stop X"},
                {pause(L"X"), L"pause X"},
                {resume(L"X"), L"resume X"},
                {useMilliseconds(L"X"), L"set X time format milliseconds"},
                {useMs(L"X"), L"set X time format ms"},
                {seek(L"X", 0), L"seek X to 0"},
                {seek(L"X", 2147483000), L"seek X to 2147483000"},
                {play(L"X"), L"play X"},
                {play(L"X", {.wait = true}), L"play X wait"},
                {play(L"X", {.repeat = true}), L"play X repeat"},
                {play(L"X", {.fullScreen = true}), L"play X fullscreen"},
                {play(L"X", {.wait = true, .fullScreen = true}), L"play X wait fullscreen"},
                {play(L"X", {.repeat = true, .fullScreen = true}), L"play X repeat fullscreen"},
                {playFrom(L"X", -5), L"play X from -5"},
                {playFromTo(L"X", 1500, 99000), L"play X from 1500 to 99000"},
                {setVolume(L"X", 550), L"setaudio X volume to 550"},
                {status(L"X", L"volume"), L"status X volume"},
                {status(L"", L"volume"), L"status  volume"},
                {status(L"X", L"length track", 12), L"status X length track 12"},
                {status(L"X", L"type track", -1), L"status X type track -1"},
                {statusMode(L"X"), L"Status X mode"},
                {openDoor(L"X"), L"Set X door open wait"},
                {closeDoor(L"X"), L"Set X door closed"}};
    for (const auto& row : rows) EXPECT_EQ(row.command, row.expected);
}

}  // namespace
}  // namespace vorla::media
