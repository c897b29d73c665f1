#include "settings/settings_records.h"

#include "engine/context.h"
#include "platform/cp1252.h"
#include "platform/data_folder.h"
#include "settings/settings_file.h"

#include <array>

namespace settings_records {

namespace {
const std::array<const char*, kRecordCount> kKeys = {
    "[TimeInputLoc]",  "[MessageInputLoc]", "[SongName]", "[Setting]",       "[Form2Location]",   "",
    "[FontSize]",      "[AllFont]",         "[24Hour]",   "[EnabledSecond]", "[FontSizeOfClock]", "[LocationForm16]",
    "[ShowSmallClock]"};

struct Word {
    const char* on;
    const char* off;
};
const std::array<Word, 4> kWords = {
    {{"ALAEOn", "ALAEOf"}, {"DCWSOn", "DCWSOf"}, {"UISPOn", "UISPOf"}, {"ISOMOn", "ISOMOf"}}};
constexpr int kWordLength = 6;

// Writes the shared buffer as it stands.
bool writeBuffer(Context& ctx, int record) {
    SettingsFile file;
    file.openForWriting(ctx.folder);
    file.write(record, ctx.recordBuffer);
    file.close();
    return !file.error().isSet();
}

bool writePosition(Context& ctx, int record, int32_t top, int32_t left) {
    SettingRecord& rec = ctx.recordBuffer;
    rec.setKey(keyOf(record));
    rec.value1 = top;
    rec.value2 = left;
    return writeBuffer(ctx, record);
}

bool makeAppFolder(const QString& appPath) {
    return data_folder::makePrivate(appPath);
}
} // namespace

QString keyOf(int record) {
    if (record < 1 || record > kRecordCount)
        return QString();
    return QString::fromLatin1(kKeys[record - 1]);
}

bool readRecord(const QString& appPath, int record, SettingRecord& rec) {
    if (!SettingsFile::exists(appPath))
        return false;
    SettingsFile file;
    file.openForReading(appPath);
    file.read(record, rec);
    file.close();
    const QString key = keyOf(record);
    return !key.isEmpty() && rec.keyIs(key);
}

OptionWords optionWordsOf(const SettingRecord& rec) {
    const QString value = fromCp1252(rec.valueBytes);
    auto on = [&](int i) { return value.mid(i * kWordLength, kWordLength) == QLatin1String(kWords[i].on); };
    return {on(0), on(1), on(2), on(3)};
}

int16_t fontChoiceOf(const SettingRecord& rec) {
    const QString value = rec.valueText();
    if (value.startsWith(QLatin1String("Arial")))
        return 1;
    if (value.startsWith(QLatin1String("TimesNewRoman")))
        return 2;
    return 3;
}

QString fontWord(int fontChoice) {
    switch (fontChoice) {
    case 1:
        return QStringLiteral("Arial");
    case 2:
        return QStringLiteral("TimesNewRoman");
    default:
        return QStringLiteral("Normal");
    }
}

bool writeTimeInputLoc(Context& ctx, int32_t top, int32_t left) {
    return writePosition(ctx, kTimeInputLoc, top, left);
}

bool writeMessageInputLoc(Context& ctx, int32_t top, int32_t left) {
    return writePosition(ctx, kMessageInputLoc, top, left);
}

bool writeSongName(Context& ctx, const QString& shortName) {
    SettingRecord& rec = ctx.recordBuffer;
    rec.setKey(keyOf(kSongName));
    rec.value1 = 0;
    rec.value2 = 0;
    rec.setValue(shortName);
    makeAppFolder(ctx.folder);
    return writeBuffer(ctx, kSongName);
}

bool writeFontSize(Context& ctx, int32_t size) {
    SettingRecord& rec = ctx.recordBuffer;
    rec.setKey(keyOf(kFontSize));
    rec.value1 = size;
    return writeBuffer(ctx, kFontSize);
}

bool writeSettingAndFont(Context& ctx, int32_t soundOn, int32_t errorPopups, const OptionWords& words) {
    SettingRecord& rec = ctx.recordBuffer;
    rec.setKey(keyOf(kSetting));
    rec.value1 = soundOn;
    rec.value2 = errorPopups;
    const bool on[4] = {words.autoLoad, words.noSecond, words.internalSpeaker, words.speakerInsteadOfMidi};
    rec.setValue(QLatin1String(on[0] ? kWords[0].on : kWords[0].off));
    for (int i = 1; i < 4; ++i)
        rec.setValue(rec.valueText() + QLatin1String(on[i] ? kWords[i].on : kWords[i].off));

    makeAppFolder(ctx.folder);
    SettingsFile file;
    file.openForWriting(ctx.folder);
    file.write(kSetting, rec);
    rec.setKey(keyOf(kAllFont));
    rec.setValue(fontWord(ctx.options.fontChoice));
    file.write(kAllFont, rec);
    file.close();
    return !file.error().isSet();
}

bool writeOwnRecord(const QString& appPath, int record, const QString& key, int32_t value1, int32_t value2) {
    SettingRecord rec;
    rec.setKey(key);
    rec.value1 = value1;
    rec.value2 = value2;
    SettingsFile file;
    file.openForWriting(appPath);
    file.write(record, rec);
    file.close();
    return !file.error().isSet();
}

bool writeClockLocation(const QString& appPath, int32_t top, int32_t left) {
    return writeOwnRecord(appPath, kClockLocation, keyOf(kClockLocation), top, left);
}

bool write24Hour(const QString& appPath, bool ticked) {
    return writeOwnRecord(appPath, k24Hour, keyOf(k24Hour), ticked ? 1 : 0, 0);
}

bool writeEnabledSecond(const QString& appPath, bool ticked) {
    return writeOwnRecord(appPath, kEnabledSecond, keyOf(kEnabledSecond), ticked ? 1 : 0, 0);
}

bool writeFontSizeOfClock(const QString& appPath, int32_t size) {
    return writeOwnRecord(appPath, kFontSizeOfClock, keyOf(kFontSizeOfClock), size, 0);
}

bool writeEditWindowLoc(const QString& appPath, int32_t top, int32_t left) {
    return writeOwnRecord(appPath, kEditWindowLoc, keyOf(kEditWindowLoc), top, left);
}

bool writeShowSmallClock(const QString& appPath, bool ticked) {
    return writeOwnRecord(appPath, kShowSmallClock, keyOf(kShowSmallClock), ticked ? 1 : 0, 0);
}

} // namespace settings_records
