#!/usr/bin/env python3
"""Hand-made faults, one line each, that the unit suite must catch.

Each mutant is applied in turn to a scratch copy of the tree (build-mutants/ beside the sources, reused between
runs so only the changed file is compiled again), the unit binary is built and the tests named for it are run.
A mutant the tests pass is a hole in the suite. Prints a table and exits non-zero if any mutant survives, does not
build, or its line is not found exactly once.

MUTANT_DIR=<tree> uses another copy; MUTANT_DIR=. mutates this tree in its own build/ (each line is put back, and
only files without changes of their own are touched): quicker where build/ is already built.

Usage: tests/mutants.py [name-substring ...]
"""
import filecmp
import os
import shutil
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# name, file, line as written, line as mutated, tests that must fail
MUTANTS = [
    ("twips truncates", "src/platform/twips.cpp",
     "return static_cast<int>(roundHalfEven(twipValue / twipsPerPixel));",
     "return static_cast<int>(twipValue / twipsPerPixel);", "Twips.*:DockingHandler.*"),
    ("cp1252 drops 0xFF", "src/platform/cp1252.cpp",
     "if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))", "if (c < 0x80 || (c >= 0xA0 && c < 0xFF))", "Cp1252.*"),
    ("digits take a colon", "src/platform/numeric.cpp",
     "if (c < QLatin1Char('0') || c > QLatin1Char('9'))", "if (c < QLatin1Char('0') || c > QLatin1Char(':'))",
     "Numeric.*:FieldReader.*"),
    ("rewrite skips the rename", "src/platform/record_file.cpp",
     "if (failure == 0 && ::rename(temporary.constData(), target.constData()) != 0)",
     "if (failure == 0 && false)", "FileFaults.*:RuntimeFolderTest.*:ScheduleFile.*"),
    ("runtime folder left open to the group", "src/platform/runtime_folder.cpp",
     "if (ok && (st.st_mode & 077) != 0)", "if (ok && (st.st_mode & 007) != 0)", "RuntimeFolderTest.*"),
    ("due second counted as not yet", "src/engine/alarm_event.cpp",
     "return t.mid(6, 2) <= now.mid(6, 2);", "return t.mid(6, 2) < now.mid(6, 2);", "AlarmEvent.*:AlarmTickTest.*"),
    ("hour 24 accepted", "src/engine/event_checker.cpp",
     "twoDigits(time.mid(0, 2), 23) &&", "twoDigits(time.mid(0, 2), 24) &&", "EventChecker.*:AlarmEvent.*"),
    ("reminder rings every tick", "src/engine/remind_me.cpp",
     "if (!counting || now.time().minute() == lastMinute)", "if (!counting)", "RemindMe.*:MessageWindows.*"),
    ("snap one pixel short", "src/clock/docking_handler.cpp",
     "std::abs(static_cast<int64_t>(gap)) <= snapDistance;", "std::abs(static_cast<int64_t>(gap)) < snapDistance;",
     "DockingHandler.*:DesktopClock.*"),
    ("roll-up density off by one", "src/clock/roll_up.cpp", "if (logPixelsX > 96)", "if (logPixelsX >= 96)",
     "DockingHandler.*:DesktopClock.*"),
    ("noon shown as AM", "src/clock/clock_text.cpp", "time.hour() < 12 ?", "time.hour() <= 12 ?", "ClockText.*"),
    ("clock outline row one short", "src/clock/window_region.cpp",
     "region += QRect(first, y, last - first + 1, 1);", "region += QRect(first, y, last - first, 1);",
     "WindowRegion.*:ClockFace.*"),
    ("file names refuse z", "src/datafiles/chooser_rules.cpp", "(c >= u'a' && c <= u'z')", "(c >= u'a' && c < u'z')",
     "Chooser*"),
    ("settings record one slot late", "src/settings/settings_file.cpp",
     "return qint64(n - 1) * SettingRecord::kLength;", "return qint64(n) * SettingRecord::kLength;",
     "SettingsFileTest.*:SettingsRecordValues.*:SettingsOptionsTest.*"),
    ("settings value keeps trailing blanks", "src/settings/setting_record.cpp",
     "while (end > start && text[end - 1] == QLatin1Char(' '))", "while (false)",
     "SettingsFileTest.*:SettingsRecordValues.*:SettingsOptionsTest.*"),
    ("speaker queue one frame over", "src/platform/tone_synth.cpp", "if (m_queuedFrames + frames > m_maxFrames)",
     "if (m_queuedFrames + frames > m_maxFrames + 1)", "SpeakerTest.*"),
    ("device command takes extra words", "src/platform/mci_commands.cpp",
     "if (words.size() > 2)\n        return kUnrecognizedKeyword;", "if (false)\n        return kUnrecognizedKeyword;", "SoundPlayerTest.*"),
    ("add --in allows one second too many", "src/engine/command_protocol.cpp",
     "return seconds <= kMostSeconds ? seconds : 0;", "return seconds <= kMostSeconds + 1 ? seconds : 0;",
     "CommandServiceTest.*:CommandLine.*"),
    ("minute list ends at 58", "src/alarmset/time_input.cpp", "for (int n = 10; n <= 59; ++n)",
     "for (int n = 10; n < 59; ++n)", "TimeInputTest.*:AddEntryTest.*"),
    ("day 31 refused", "src/eventlist/edit_event.cpp", "day > 0 && day < 32;", "day > 0 && day < 31;",
     "Edit*:PopupTest.*"),
    ("the current second counts as passed", "src/alarmset/add_entry.cpp", "if (eventTime < ctx.clock.timeText()) {",
     "if (eventTime <= ctx.clock.timeText()) {", "AddEntryTest.*"),
    ("message browsing runs past the last", "src/message/input_message.cpp",
     "if (m_currentMessage >= m_messageCount)", "if (m_currentMessage > m_messageCount)", "InputMessage*"),
    ("font not shrunk at the fit", "src/message/message_text.cpp", "if (need > room)", "if (need > room + 1)",
     "MessageText.*:InputMessage*"),
    ("loaded rows out of time order", "src/engine/schedule_file.cpp",
     "before.date.compare(date) > 0 || (before.date == date && before.time.compare(time) > 0)",
     "before.date.compare(date) > 0", "ScheduleFile.*:AlarmTickTest.*"),
    ("midi plays with sound off", "src/sound/sound_player.cpp", "if (!m_ctx.options.soundOn)\n        return;\n    const QString copy",
     "if (false)\n        return;\n    const QString copy", "SoundPlayerTest.*:AudioOutputTest.*"),
]


def run(cmd, cwd, log):
    with open(log, "w") as out:
        return subprocess.run(cmd, cwd=cwd, stdout=out, stderr=subprocess.STDOUT).returncode


def sync(scratch):
    """Copies the tracked and new files of the work tree into the scratch copy, touching only what changed."""
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                           capture_output=True, text=True).stdout.split("\n")
    for name in filter(None, names):
        source, target = os.path.join(ROOT, name), os.path.join(scratch, name)
        if not os.path.isfile(source) or (os.path.isfile(target) and filecmp.cmp(source, target, shallow=False)):
            continue
        os.makedirs(os.path.dirname(target), exist_ok=True)
        shutil.copy2(source, target)


def build(scratch, log):
    folder = os.path.join(scratch, "build")
    if not os.path.isfile(os.path.join(folder, "CMakeCache.txt")):
        configure = ["cmake", "-S", scratch, "-B", folder, "-DCMAKE_BUILD_TYPE=Release", "-DBELLWICK_TESTS=ON"]
        if shutil.which("ccache"):
            configure.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        if run(configure, scratch, log) != 0:
            return False
    jobs = os.environ.get("MUTANT_JOBS", "2")
    return run(["cmake", "--build", folder, "-j" + jobs, "--target", "bellwick_tests"], scratch, log) == 0


def tests_pass(scratch, pattern, log):
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen", SDL_AUDIODRIVER="dummy")
    binary = os.path.join(scratch, "build", "bellwick_tests")
    with open(log, "a") as out:
        return subprocess.run([binary, "--gtest_filter=" + pattern], cwd=os.path.join(scratch, "build"), env=env,
                              stdout=out, stderr=subprocess.STDOUT).returncode == 0


def main():
    scratch = os.path.abspath(os.environ.get("MUTANT_DIR", os.path.join(ROOT, "build-mutants", "tree")))
    in_place = scratch == ROOT
    logs = os.path.join(ROOT, "build-mutants", "logs")
    os.makedirs(logs, exist_ok=True)
    chosen = [m for m in MUTANTS if not sys.argv[1:] or any(a in m[0] for a in sys.argv[1:])]
    if in_place:
        changed = subprocess.run(["git", "diff", "--name-only", "HEAD", "--"] + sorted({m[1] for m in chosen}),
                                 cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
        if changed:
            print("uncommitted changes in", ", ".join(changed), "- not mutating them in place")
            return 1
    else:
        sync(scratch)
    base_log = os.path.join(logs, "unmutated.log")
    # A mutant is only caught if the same tests pass without it: the whole suite, once.
    if not build(scratch, base_log) or not tests_pass(scratch, "*", base_log):
        print("the unmutated tree does not build or pass; see", base_log)
        return 1
    results = []
    for name, path, old, new, pattern in chosen:
        file = os.path.join(scratch, path)
        with open(file, encoding="utf-8") as f:
            original = f.read()
        log = os.path.join(logs, name.replace(" ", "_") + ".log")
        if original.count(old) != 1:
            results.append((name, path, "line not found once"))
            continue
        try:
            with open(file, "w", encoding="utf-8") as f:
                f.write(original.replace(old, new))
            if not build(scratch, log):
                verdict = "does not build"
            else:
                verdict = "SURVIVED" if tests_pass(scratch, pattern, log) else "caught"
        finally:
            with open(file, "w", encoding="utf-8") as f:
                f.write(original)
        results.append((name, path, verdict))
        print(f"{name:40} {verdict}", flush=True)
    print()
    print("| Mutant | File | Result |")
    print("| --- | --- | --- |")
    for name, path, verdict in results:
        print(f"| {name} | {path} | {verdict} |")
    bad = [r for r in results if r[2] != "caught"]
    print(f"\n{len(results) - len(bad)} of {len(results)} caught")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
