// Synthesises the program's own sounds: ding.wav (a bell), didi.snd (a two-tone chime, RIFF wave)
// and air.mid (a short melody). Usage: make_sounds <folder>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 22050;
constexpr double kPi = 3.14159265358979323846;

void put16(std::vector<uint8_t>& out, uint16_t v) {
    out.push_back(v & 0xFF);
    out.push_back(v >> 8);
}
void put32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back((v >> (8 * i)) & 0xFF);
}
void putText(std::vector<uint8_t>& out, const char* s) {
    while (*s)
        out.push_back(static_cast<uint8_t>(*s++));
}

std::vector<uint8_t> wave(const std::vector<double>& samples) {
    std::vector<uint8_t> out;
    putText(out, "RIFF");
    put32(out, 36 + samples.size() * 2);
    putText(out, "WAVEfmt ");
    put32(out, 16);
    put16(out, 1); // PCM
    put16(out, 1); // mono
    put32(out, kRate);
    put32(out, kRate * 2);
    put16(out, 2);
    put16(out, 16);
    putText(out, "data");
    put32(out, samples.size() * 2);
    for (double s : samples) {
        const double c = std::fmax(-1.0, std::fmin(1.0, s));
        put16(out, static_cast<uint16_t>(static_cast<int16_t>(std::lround(c * 30000))));
    }
    return out;
}

// A struck bell: inharmonic partials, each with its own decay.
std::vector<double> bell(double fundamental, double seconds, double gain) {
    const double partials[][3] = {
        {1.0, 1.0, 2.5}, {2.0, 0.6, 3.5}, {2.76, 0.4, 5.0}, {5.4, 0.25, 8.0}, {8.9, 0.1, 12.0}};
    std::vector<double> s(static_cast<size_t>(seconds * kRate));
    for (size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double attack = std::fmin(1.0, t / 0.004);
        double v = 0;
        for (const auto& p : partials)
            v += p[1] * std::exp(-p[2] * t) * std::sin(2 * kPi * fundamental * p[0] * t);
        s[i] = gain * attack * v / 2.35;
    }
    return s;
}

std::vector<uint8_t> midi() {
    // Format 0, one track, 480 ticks a quarter: a short air on a music box.
    std::vector<uint8_t> track;
    auto delta = [&](uint32_t d) {
        uint8_t buf[4];
        int n = 0;
        buf[n++] = d & 0x7F;
        while (d >>= 7)
            buf[n++] = 0x80 | (d & 0x7F);
        while (n)
            track.push_back(buf[--n]);
    };
    delta(0);
    track.insert(track.end(), {0xFF, 0x51, 0x03, 0x07, 0xA1, 0x20}); // 120 bpm
    delta(0);
    track.insert(track.end(), {0xC0, 10}); // music box
    const int notes[][2] = {{72, 480}, {76, 480}, {79, 480}, {84, 960}, {83, 240}, {81, 240},
                            {79, 480}, {77, 480}, {76, 480}, {74, 480}, {72, 1440}};
    for (const auto& n : notes) {
        delta(0);
        track.insert(track.end(), {0x90, static_cast<uint8_t>(n[0]), 96});
        delta(n[1]);
        track.insert(track.end(), {0x80, static_cast<uint8_t>(n[0]), 0});
    }
    delta(0);
    track.insert(track.end(), {0xFF, 0x2F, 0x00});

    std::vector<uint8_t> out;
    putText(out, "MThd");
    out.insert(out.end(), {0, 0, 0, 6, 0, 0, 0, 1, 0x01, 0xE0});
    putText(out, "MTrk");
    const uint32_t len = track.size();
    out.insert(out.end(), {static_cast<uint8_t>(len >> 24), static_cast<uint8_t>(len >> 16),
                           static_cast<uint8_t>(len >> 8), static_cast<uint8_t>(len)});
    out.insert(out.end(), track.begin(), track.end());
    return out;
}

bool save(const std::string& path, const std::vector<uint8_t>& bytes) {
    std::ofstream f(path, std::ios::binary);
    f.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(f);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sounds <folder>\n");
        return 2;
    }
    const std::string dir = argv[1];
    std::vector<double> chime = bell(1318.5, 0.35, 0.7);
    const std::vector<double> low = bell(1046.5, 0.6, 0.7);
    chime.insert(chime.end(), low.begin(), low.end());
    const bool ok = save(dir + "/ding.wav", wave(bell(880.0, 1.1, 0.9))) && save(dir + "/didi.snd", wave(chime)) &&
                    save(dir + "/air.mid", midi());
    if (!ok) {
        std::fprintf(stderr, "make_sounds: cannot write to %s\n", dir.c_str());
        return 1;
    }
    return 0;
}
