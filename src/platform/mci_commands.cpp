#include "platform/mci_commands.h"

#include "platform/midi_output.h"

#include <QFileInfo>
#include <QStringList>

namespace {

// Splits a command into words at blanks; a word in double quotes may hold blanks.
QStringList commandWords(const QString& command) {
    QStringList words;
    QString word;
    bool quoted = false;
    bool inWord = false;
    for (const QChar c : command) {
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            inWord = true;
        } else if (c.isSpace() && !quoted) {
            if (inWord)
                words.append(word);
            word.clear();
            inWord = false;
        } else {
            word.append(c);
            inWord = true;
        }
    }
    if (inWord)
        words.append(word);
    return words;
}

bool same(const QString& a, const char* b) {
    return a.compare(QLatin1String(b), Qt::CaseInsensitive) == 0;
}

} // namespace

MciSequencerCommands::~MciSequencerCommands() {
    if (!m_alias.isEmpty())
        m_sequencer.close();
}

bool MciSequencerCommands::isOpenAlias(const QString& name) const {
    return !m_alias.isEmpty() && name.compare(m_alias, Qt::CaseInsensitive) == 0;
}

uint32_t MciSequencerCommands::sendCommand(const QString& command) {
    const QStringList words = commandWords(command);
    if (words.isEmpty())
        return kUnrecognizedCommand;
    const QString& verb = words.first();
    if (same(verb, "open"))
        return open(words);
    if (!same(verb, "play") && !same(verb, "close"))
        return kUnrecognizedCommand;
    if (words.size() < 2)
        return kMissingParameter;
    if (!isOpenAlias(words.at(1)))
        return kInvalidDeviceName;
    if (words.size() > 2)
        return kUnrecognizedKeyword;
    if (same(verb, "play"))
        return m_sequencer.play() ? 0 : kHardware;
    m_sequencer.close();
    m_alias.clear();
    return 0;
}

uint32_t MciSequencerCommands::open(const QStringList& words) {
    if (words.size() < 2)
        return kMissingParameter;
    const QString file = words.at(1);
    QString alias = file;
    for (qsizetype i = 2; i < words.size(); i += 2) {
        if (i + 1 >= words.size())
            return kMissingParameter;
        if (same(words.at(i), "type")) {
            if (!same(words.at(i + 1), "sequencer"))
                return kInvalidDeviceName;
        } else if (same(words.at(i), "alias")) {
            alias = words.at(i + 1);
        } else {
            return kUnrecognizedKeyword;
        }
    }
    if (!m_alias.isEmpty())
        return kDeviceOpen;
    if (!QFileInfo(file).isFile())
        return kFileNotFound;
    if (!m_sequencer.open(file))
        return kCannotLoadDriver;
    m_alias = alias;
    return 0;
}
