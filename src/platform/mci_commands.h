#pragma once

#include <QString>
#include <cstdint>

class MidiSequencer;

// The multimedia command interface: text commands to devices named by an alias.
class MciDevice {
public:
    virtual ~MciDevice() = default;
    // 0 on success, else an error number.
    virtual uint32_t sendCommand(const QString& command) = 0;
};

// The commands of one sequencer device over a midi sequencer:
//   open <file> [type sequencer] [alias <name>]   (a file name with blanks goes in double quotes)
//   play <name>
//   close <name>
// Words are not case sensitive. One device can be open at a time.
class MciSequencerCommands : public MciDevice {
public:
    // The error numbers of the interface.
    static constexpr uint32_t kUnrecognizedKeyword = 259;
    static constexpr uint32_t kUnrecognizedCommand = 261;
    static constexpr uint32_t kHardware = 262;
    static constexpr uint32_t kInvalidDeviceName = 263;
    static constexpr uint32_t kDeviceOpen = 265;
    static constexpr uint32_t kCannotLoadDriver = 266;
    static constexpr uint32_t kMissingParameter = 273;
    static constexpr uint32_t kFileNotFound = 275;

    explicit MciSequencerCommands(MidiSequencer& sequencer) : m_sequencer(sequencer) {}
    ~MciSequencerCommands() override;

    uint32_t sendCommand(const QString& command) override;

    // The alias of the open device; empty when none is open.
    const QString& openAlias() const { return m_alias; }

private:
    uint32_t open(const QStringList& words);
    bool isOpenAlias(const QString& name) const;

    MidiSequencer& m_sequencer;
    QString m_alias;
};
