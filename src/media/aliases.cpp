#include "media/aliases.h"

namespace vorla::media {
namespace {

TextView baseAlias(MMType type) {
    switch (type) {
        case MMType::AviMpg: return L"SonAvi";
        case MMType::Wav: return L"SonWav";
        case MMType::Midi: return L"SonMidi";
        case MMType::Mp3: return L"SonMp3";
        case MMType::CD: return discAlias;
    }
    return {};
}

}  // namespace

Text aliasName(mmCanal channel, MMType type, TextView fileName) {
    const auto number = static_cast<std::int32_t>(channel);
    Text alias(baseAlias(type));
    if (number <= 0 || number >= channelCount) return alias;
    if (channel == mmCanal::Canal99_FileName && !fileName.empty()) return Text(fileName);
    return alias + inDigits(number);
}

MMType typeOfExtension(TextView extension) {
    struct Row {
        TextView extension;
        MMType type;
    };
    constexpr Row rows[] = {{L"AVI", MMType::AviMpg}, {L"MPG", MMType::AviMpg}, {L"MPEG", MMType::AviMpg},
                            {L"WMV", MMType::AviMpg}, {L"WAV", MMType::Wav},    {L"MID", MMType::Midi},
                            {L"MP3", MMType::Mp3},    {L"CDA", MMType::CD}};
    for (const Row& row : rows)
        if (row.extension == extension) return row.type;
    return {};
}

}  // namespace vorla::media
