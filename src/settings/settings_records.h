#pragma once

#include "settings/setting_record.h"

#include <QString>
#include <cstdint>

class Context;

// The records of tolm.ini by number, their keys, and one writer for each record a window saves.
// Writers are silent: a failed write loses the setting. They return false then, for the tests.
namespace settings_records {

constexpr int kTimeInputLoc = 1;    // AlarmSetWindow top, left
constexpr int kMessageInputLoc = 2; // InputMessageWindow top, left
constexpr int kSongName = 3;        // song name without folder and ".wav"
constexpr int kSetting = 4;         // soundOnBox, errorPopupsBox, the four option words
constexpr int kClockLocation = 5;   // desktop clock top, left
constexpr int kFontSize = 7;        // font size of the message box
constexpr int kAllFont = 8;         // "Arial", "TimesNewRoman" or "Normal"
constexpr int k24Hour = 9;
constexpr int kEnabledSecond = 10;
constexpr int kFontSizeOfClock = 11;
constexpr int kEditWindowLoc = 12; // Edit window top, left
constexpr int kShowSmallClock = 13;
constexpr int kRecordCount = 13;

// The key written into record n; empty for 6, which nothing uses, and for numbers out of range.
QString keyOf(int record);

// Empties rec and reads record n into it when tolm.ini exists in appPath; errors are ignored.
// True when the trimmed key is the one record n is written with.
bool readRecord(const QString& appPath, int record, SettingRecord& rec);

// Record 4's value: four 6-character words, each "...On" or "...Of".
struct OptionWords {
    bool autoLoad = false;             // autoLoadBox, "ALAEOn"
    bool noSecond = false;             // noSecondBox, "DCWSOn"
    bool internalSpeaker = false;      // internalSpeakerBox, "UISPOn"
    bool speakerInsteadOfMidi = false; // speakerInsteadOfMidiBox, "ISOMOn"
};
// Only the exact "On" word at its place counts as on; anything else, blanks included, is off.
OptionWords optionWordsOf(const SettingRecord& rec);

// Record 8's font choice on the trimmed value: 1 Arial, 2 Times New Roman, 3 anything else.
int16_t fontChoiceOf(const SettingRecord& rec);
QString fontWord(int fontChoice);

// Writers through the shared buffer ctx.recordBuffer: the fields they do not set keep what is there.
bool writeTimeInputLoc(Context& ctx, int32_t top, int32_t left);
bool writeMessageInputLoc(Context& ctx, int32_t top, int32_t left);
// Creates the program folder when missing.
bool writeSongName(Context& ctx, const QString& shortName);
bool writeFontSize(Context& ctx, int32_t size);
// Records 4 and 8, written when the Settings window closes; record 8 follows ctx.options.fontChoice.
// Creates the program folder when missing.
bool writeSettingAndFont(Context& ctx, int32_t soundOn, int32_t errorPopups, const OptionWords& words);

// Writers with a record of their own, filled fresh: value2 as given and a value of zero bytes.
bool writeOwnRecord(const QString& appPath, int record, const QString& key, int32_t value1, int32_t value2);
bool writeClockLocation(const QString& appPath, int32_t top, int32_t left);
bool write24Hour(const QString& appPath, bool ticked);
bool writeEnabledSecond(const QString& appPath, bool ticked);
bool writeFontSizeOfClock(const QString& appPath, int32_t size);
bool writeEditWindowLoc(const QString& appPath, int32_t top, int32_t left);
bool writeShowSmallClock(const QString& appPath, bool ticked);

} // namespace settings_records
