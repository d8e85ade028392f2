// The player over an engine that follows a script: which song is loaded when, and what is reported.
#include "platform/player/playlist_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/player/scripted_engine.h"
#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlaylistPlayback : public testing::Test {
 protected:
  // Opens a playlist of songs of these names.
  void open(const std::vector<std::string>& names) {
    std::vector<std::string> lines;
    for (const auto& name : names) lines.push_back(songs.add(name));
    player.open(songs.list(lines));
  }
  // Lets the player handle what the script reports.
  void handle() { player.drainEvents(); }
  void end() {
    script->ended();
    handle();
  }
  void fail(const std::string& reason = cannotBePlayed) {
    script->failed(reason);
    handle();
  }
  void begin(double seconds) {
    script->duration(seconds);
    handle();
  }
  // The songs loaded since the last call.
  std::vector<std::string> loaded() {
    std::vector<std::string> names;
    for (const auto& call : script->calls) {
      if (call.starts_with("load ")) names.push_back(call.substr(5));
    }
    script->calls.clear();
    return names;
  }
  const std::string& lastCall() { return script->calls.back(); }

  Songs songs;
  std::shared_ptr<Script> script = std::make_shared<Script>();
  TestPlayer test{startScripted(script)};
  PlaylistPlayer& player = test.player;
};

TEST_F(PlaylistPlayback, PlaysOneSongAfterTheOther) {
  open({"a.mp3", "b.mp3", "c.mp3"});
  EXPECT_EQ(test.state().count, 3u);
  EXPECT_THAT(loaded(), ElementsAre("a.mp3"));
  begin(10);
  end();
  EXPECT_THAT(loaded(), ElementsAre("b.mp3"));
  EXPECT_EQ(test.state().index, 1u);
  end();
  EXPECT_THAT(loaded(), ElementsAre("c.mp3"));
  EXPECT_TRUE(test.state().opened);
}

TEST_F(PlaylistPlayback, AfterTheLastSongNothingIsOpen) {
  open({"a.mp3"});
  begin(10);
  script->position(9.9);
  end();
  EXPECT_FALSE(test.state().opened);
  EXPECT_TRUE(test.state().paused);
  EXPECT_EQ(test.state().song, "a.mp3");
  EXPECT_EQ(player.duration(), 10);
  EXPECT_EQ(player.currentPosition(), 9.9);
  EXPECT_THAT(loaded(), ElementsAre("a.mp3"));
  player.playOrPause();
  EXPECT_THAT(loaded(), ElementsAre("a.mp3")) << "the list is played again";
}

TEST_F(PlaylistPlayback, ReportsEachFileOnceWhenItsLengthIsKnown) {
  open({"a.mp3", "b.mp3"});
  script->duration(0);
  handle();
  EXPECT_THAT(test.lengths, IsEmpty()) << "not known yet";
  script->duration(10);
  script->duration(10);
  script->duration(11);
  handle();
  EXPECT_THAT(test.lengths, ElementsAre(10));
  EXPECT_EQ(player.duration(), 11) << "a better estimate";
  end();
  begin(20);
  EXPECT_THAT(test.lengths, ElementsAre(10, 20));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
}

TEST_F(PlaylistPlayback, ADamagedSongIsSkippedWithItsReason) {
  open({"a.mp3", "b.mp3"});
  fail();
  EXPECT_THAT(loaded(), ElementsAre("a.mp3", "b.mp3"));
  EXPECT_EQ(test.note(), "Skipped a.mp3: it cannot be played.");
  EXPECT_THAT(test.lengths, IsEmpty());
  begin(10);
  EXPECT_EQ(test.note(), "Skipped a.mp3: it cannot be played.") << "while the next song plays";
  end();
  EXPECT_EQ(test.note(), "");
}

TEST_F(PlaylistPlayback, TheReasonIsTheEngines) {
  open({"a.mp3"});
  fail("the moon is full");
  EXPECT_EQ(test.note(), "Skipped a.mp3: the moon is full.");
}

TEST_F(PlaylistPlayback, AListOfOnlyDamagedSongsStopsAndIsReported) {
  open({"a.mp3", "b.mp3", "c.mp3"});
  fail();
  fail();
  fail();
  EXPECT_EQ(test.note(), "None of the 3 songs can be played; the last was c.mp3: it cannot be played.");
  EXPECT_FALSE(test.state().opened);
  EXPECT_EQ(test.state().song, "");
  EXPECT_EQ(test.state().index, 0u);
}

TEST_F(PlaylistPlayback, AFailureInTheMiddleOfASongContinuesWithTheNext) {
  open({"a.mp3", "b.mp3"});
  begin(10);
  script->position(5);
  fail();
  EXPECT_THAT(loaded(), ElementsAre("a.mp3", "b.mp3"));
  EXPECT_EQ(player.currentPosition(), 0);
}

TEST_F(PlaylistPlayback, PreviousAtTheStartOfTheListSeeksToTheStartOfTheSong) {
  open({"a.mp3", "b.mp3"});
  begin(10);
  script->position(1);
  handle();
  loaded();
  player.previous();
  EXPECT_EQ(lastCall(), "seek 0");
  EXPECT_THAT(loaded(), IsEmpty());
}

TEST_F(PlaylistPlayback, PreviousNearTheStartOfASongGoesToTheSongBefore) {
  open({"a.mp3", "b.mp3"});
  player.next();
  begin(10);
  script->position(2.9);
  handle();
  player.previous();
  EXPECT_THAT(loaded(), ElementsAre("a.mp3", "b.mp3", "a.mp3"));
  player.next();
  begin(10);
  script->position(3.1);
  handle();
  player.previous();
  EXPECT_EQ(lastCall(), "seek 0");
  EXPECT_EQ(test.state().song, "b.mp3");
}

TEST_F(PlaylistPlayback, PreviousSkipsADamagedSongBackwards) {
  open({"a.mp3", "b.mp3", "c.mp3"});
  end();
  end();
  loaded();
  player.previous();
  fail();
  EXPECT_THAT(loaded(), ElementsAre("b.mp3", "a.mp3"));
}

TEST_F(PlaylistPlayback, PreviousReturnsToTheSongItCameFromIfAllBeforeAreDamaged) {
  open({"a.mp3", "b.mp3", "c.mp3"});
  fail();
  fail();
  loaded();
  player.previous();
  fail();
  fail();
  EXPECT_THAT(loaded(), ElementsAre("b.mp3", "a.mp3", "c.mp3"));
}

TEST_F(PlaylistPlayback, NextAfterTheLastSongDoesNothing) {
  open({"a.mp3"});
  begin(10);
  loaded();
  player.next();
  EXPECT_THAT(script->calls, IsEmpty());
  EXPECT_TRUE(test.state().opened);
}

TEST_F(PlaylistPlayback, ASeekIsKeptWithinTheSong) {
  open({"a.mp3"});
  player.seek(5);
  EXPECT_EQ(lastCall(), "seek 0") << "the length is not known yet";
  begin(10);
  player.seek(99);
  EXPECT_EQ(lastCall(), "seek 10");
  EXPECT_EQ(player.currentPosition(), 10);
  player.seek(-1);
  EXPECT_EQ(lastCall(), "seek 0");
}

TEST_F(PlaylistPlayback, StopWhileASongIsLoadingPlaysNothing) {
  open({"a.mp3", "b.mp3"});
  const auto song = script->song;
  player.stop();
  EXPECT_EQ(lastCall(), "stop");
  script->reportOf(song, {.kind = Script::Event::Kind::duration, .seconds = 10});
  script->reportOf(song, {.kind = Script::Event::Kind::position, .seconds = 1});
  script->reportOf(song, {.kind = Script::Event::Kind::failed, .reason = cannotBePlayed});
  handle();
  EXPECT_FALSE(test.state().opened);
  EXPECT_EQ(player.duration(), 0);
  EXPECT_EQ(player.currentPosition(), 0);
  EXPECT_THAT(loaded(), ElementsAre("a.mp3"));
  EXPECT_THAT(test.lengths, IsEmpty());
  EXPECT_EQ(test.note(), "");
}

TEST_F(PlaylistPlayback, PlayAfterStopPlaysTheSameSong) {
  open({"a.mp3", "b.mp3"});
  player.next();
  player.stop();
  loaded();
  player.playOrPause();
  EXPECT_THAT(loaded(), ElementsAre("b.mp3"));
}

TEST_F(PlaylistPlayback, OpeningDuringPlaybackStopsTheSongAndPlaysTheNewOne) {
  open({"a.mp3", "b.mp3"});
  begin(10);
  script->position(5);
  handle();
  script->calls.clear();
  player.open(songs.add("c.mp3"));
  EXPECT_THAT(script->calls, ElementsAre("stop", "load c.mp3"));
  EXPECT_EQ(test.state().count, 1u);
  EXPECT_EQ(player.duration(), 0);
  EXPECT_EQ(player.currentPosition(), 0);
}

TEST_F(PlaylistPlayback, LateEventsOfAFormerSongAreIgnored) {
  open({"a.mp3"});
  const auto former = script->song;
  begin(10);
  player.open(songs.add("b.mp3"));
  using Kind = Script::Event::Kind;
  for (const Kind kind : {Kind::duration, Kind::position, Kind::paused, Kind::ended, Kind::failed}) {
    script->reportOf(former, {.kind = kind, .seconds = 7, .paused = true, .reason = cannotBePlayed});
    handle();
    EXPECT_TRUE(test.state().opened);
    EXPECT_FALSE(test.state().paused);
    EXPECT_EQ(test.state().song, "b.mp3");
    EXPECT_EQ(player.duration(), 0);
    EXPECT_EQ(player.currentPosition(), 0);
    EXPECT_EQ(test.note(), "");
  }
  EXPECT_THAT(test.lengths, ElementsAre(10));
}

TEST_F(PlaylistPlayback, EventsAfterTheEndOfASongAreIgnored) {
  open({"a.mp3"});
  begin(10);
  end();
  script->position(3);
  script->ended();
  handle();
  EXPECT_EQ(player.currentPosition(), 0);
  EXPECT_THAT(loaded(), ElementsAre("a.mp3"));
}

TEST_F(PlaylistPlayback, TheSongsOfAListHaveDifferentNumbers) {
  open({"a.mp3", "b.mp3"});
  const auto first = script->song;
  end();
  const auto second = script->song;
  EXPECT_NE(first, second);
  player.open(songs / "a.mp3");
  EXPECT_NE(script->song, second);
  EXPECT_NE(script->song, first);
}

TEST_F(PlaylistPlayback, WithoutAutoStartTheFirstSongIsLoadedPausedAndTheOthersPlay) {
  player.setAutoStart(false);
  open({"a.mp3", "b.mp3"});
  EXPECT_THAT(loaded(), ElementsAre("a.mp3 paused"));
  EXPECT_TRUE(test.state().paused);
  player.playOrPause();
  EXPECT_EQ(lastCall(), "play");
  EXPECT_TRUE(test.state().paused) << "until the engine reports it";
  script->paused(false);
  handle();
  EXPECT_FALSE(test.state().paused);
  end();
  EXPECT_THAT(loaded(), ElementsAre("b.mp3"));
}

TEST_F(PlaylistPlayback, ASongAfterADamagedOneIsPausedAsThatWasToBe) {
  player.setAutoStart(false);
  open({"a.mp3", "b.mp3"});
  fail();
  EXPECT_THAT(loaded(), ElementsAre("a.mp3 paused", "b.mp3 paused"));
}

TEST_F(PlaylistPlayback, VolumeAndMuteAreKeptWithinTheirRangeAndGivenToTheEngineAtItsStart) {
  player.setVolume(140);
  player.setVolume(30);
  player.setMuted(true);
  EXPECT_THAT(script->calls, IsEmpty()) << "nothing is started before the first song";
  open({"a.mp3"});
  EXPECT_THAT(script->calls, ElementsAre("volume 30", "mute", "load a.mp3"));
  player.setVolume(-5);
  EXPECT_EQ(lastCall(), "volume 0");
  player.setMuted(false);
  EXPECT_EQ(lastCall(), "sound");
}

TEST_F(PlaylistPlayback, AnEngineThatCannotBeStartedIsReportedAndTriedAgain) {
  script->problem = "Nothing can be played here: there is no sound.";
  open({"a.mp3"});
  EXPECT_EQ(test.note(), script->problem);
  EXPECT_FALSE(test.state().opened);
  player.playOrPause();
  player.next();
  player.previous();
  player.seek(1);
  EXPECT_THAT(loaded(), IsEmpty());
  script->problem.clear();
  open({"a.mp3"});
  EXPECT_EQ(test.note(), "");
  EXPECT_THAT(loaded(), ElementsAre("a.mp3"));
}

TEST_F(PlaylistPlayback, NewStreamWaitsUntilTheProgramListensAgain) {
  test.listening = false;
  open({"a.mp3"});
  begin(10);
  EXPECT_THAT(test.lengths, IsEmpty());
  test.listening = true;
  handle();
  EXPECT_THAT(test.lengths, ElementsAre(10));
  handle();
  EXPECT_EQ(test.lengths.size(), 1u);
}

TEST_F(PlaylistPlayback, AHandlerOfNewStreamMayOpenAnotherSong) {
  const auto other = songs.add("other.mp3");
  player.newStream = [&] {
    player.newStream = nullptr;
    player.open(other);
  };
  open({"a.mp3"});
  script->duration(10);
  script->position(1);
  handle();
  EXPECT_EQ(test.state().song, "other.mp3");
  EXPECT_EQ(player.currentPosition(), 0) << "the position was the former song's";
}

TEST_F(PlaylistPlayback, TheEngineWakesThePlayerFromAnyThread) {
  open({"a.mp3"});
  script->duration(10);
  script->host.runInBackground([this] { script->host.wake(); });
  EXPECT_THAT(test.lengths, IsEmpty()) << "handled by the program's own thread";
  EXPECT_TRUE(test.untilNewStreams(1));
}

TEST_F(PlaylistPlayback, ObserversAreNotifiedOfChangesAndJumpsWhileTheyObserve) {
  int changes = 0;
  int jumps = 0;
  auto observation = player.observe({[&] { ++changes; }, [&] { ++jumps; }});
  open({"a.mp3", "b.mp3"});
  begin(10);
  EXPECT_GT(changes, 0);
  EXPECT_EQ(jumps, 0);
  player.seek(5);
  EXPECT_EQ(jumps, 1);
  player.next();
  EXPECT_EQ(jumps, 1) << "another song is no jump within a song";
  observation.reset();
  changes = 0;
  player.previous();
  EXPECT_EQ(changes, 0);
}

TEST_F(PlaylistPlayback, EverySongOpenedHasItsPathAndANumberOfItsOwn) {
  open({"a.mp3"});
  EXPECT_EQ(test.state().path, songs / "a.mp3");
  const auto number = test.state().number;
  open({"a.mp3"});
  EXPECT_NE(test.state().number, number);
  player.stop();
  EXPECT_EQ(test.state().path, "");
}

TEST_F(PlaylistPlayback, AWakeAfterThePlayersEndIsIgnored) {
  auto late = std::make_shared<Script>();
  std::vector<std::function<void()>> posted;
  {
    PlaylistPlayer gone({[&posted](std::function<void()> action) { posted.push_back(std::move(action)); },
                         startScripted(late), [](const std::function<void()>& work) { work(); }, [] { return true; }});
    gone.open(songs.add("a.mp3"));
    late->host.wake();
  }
  late->duration(10);
  for (const auto& action : posted) action();
  EXPECT_EQ(late->events.size(), 1u);
}

}  // namespace
}  // namespace plimo
