#include "platform/linux/icons/Jpeg2000Picture.h"

#include "platform/linux/icons/Jpeg2000Guard.h"

#include <openjpeg.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace zelmo {

namespace {

struct Input {
    const QByteArray& bytes;
    qsizetype position = 0;

    qsizetype rest() const { return bytes.size() - position; }
};

OPJ_SIZE_T readInput(void* buffer, OPJ_SIZE_T size, void* data) {
    auto* input = static_cast<Input*>(data);
    const auto count = static_cast<qsizetype>(std::min<OPJ_SIZE_T>(size, static_cast<OPJ_SIZE_T>(input->rest())));
    if (count == 0)
        return static_cast<OPJ_SIZE_T>(-1);
    std::memcpy(buffer, input->bytes.constData() + input->position, static_cast<std::size_t>(count));
    input->position += count;
    return static_cast<OPJ_SIZE_T>(count);
}

OPJ_OFF_T skipInput(OPJ_OFF_T count, void* data) {
    auto* input = static_cast<Input*>(data);
    if (count < 0 || count > input->rest())
        return -1;
    input->position += count;
    return count;
}

OPJ_BOOL seekInput(OPJ_OFF_T position, void* data) {
    auto* input = static_cast<Input*>(data);
    if (position < 0 || position > input->bytes.size())
        return OPJ_FALSE;
    input->position = position;
    return OPJ_TRUE;
}

// Eight bits without a sign in each channel, all of the picture's full size.
bool isPlain(const opj_image_t& image, OPJ_UINT32 width, OPJ_UINT32 height) {
    if (image.numcomps < 1 || image.numcomps > 4)
        return false;
    return std::all_of(image.comps, image.comps + image.numcomps, [=](const opj_image_comp_t& channel) {
        return channel.w == width && channel.h == height && channel.prec == 8 && channel.sgnd == 0;
    });
}

QImage toImage(const opj_image_t& source, int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    const bool isColored = source.numcomps >= 3;
    const bool hasAlpha = source.numcomps % 2 == 0;
    const auto value = [&](OPJ_UINT32 channel, std::size_t at) {
        return std::clamp<int>(source.comps[channel].data[at], 0, 255);
    };
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const std::size_t at =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
            line[x] = qRgba(value(0, at), value(isColored ? 1 : 0, at), value(isColored ? 2 : 0, at),
                            hasAlpha ? value(source.numcomps - 1, at) : 255);
        }
    }
    return image;
}

} // namespace

bool Jpeg2000Picture::isPicture(const QByteArray& bytes) {
    return bytes.startsWith(QByteArrayView("\0\0\0\x0cjP  \r\n\x87\n", 12));
}

QImage Jpeg2000Picture::decode(const QByteArray& bytes, int sideLimit) {
    if (!isPicture(bytes) || !isHarmlessJpeg2000(bytes, sideLimit))
        return {};
    Input input{bytes};
    const std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> stream(opj_stream_default_create(OPJ_TRUE),
                                                                              &opj_stream_destroy);
    const std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> codec(opj_create_decompress(OPJ_CODEC_JP2),
                                                                           &opj_destroy_codec);
    if (!stream || !codec)
        return {};
    opj_stream_set_user_data(stream.get(), &input, nullptr);
    opj_stream_set_user_data_length(stream.get(), static_cast<OPJ_UINT64>(bytes.size()));
    opj_stream_set_read_function(stream.get(), readInput);
    opj_stream_set_skip_function(stream.get(), skipInput);
    opj_stream_set_seek_function(stream.get(), seekInput);
    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    if (!opj_setup_decoder(codec.get(), &parameters))
        return {};
    opj_image_t* header = nullptr;
    const bool hasHeader = opj_read_header(stream.get(), codec.get(), &header);
    const std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> image(header, &opj_image_destroy);
    if (!hasHeader || !image || image->x1 <= image->x0 || image->y1 <= image->y0)
        return {};
    const OPJ_UINT32 width = image->x1 - image->x0;
    const OPJ_UINT32 height = image->y1 - image->y0;
    const auto limit = static_cast<OPJ_UINT32>(sideLimit);
    if (width > limit || height > limit || !isPlain(*image, width, height))
        return {};
    if (!opj_decode(codec.get(), stream.get(), image.get()) || !isPlain(*image, width, height))
        return {};
    const bool isComplete = std::all_of(image->comps, image->comps + image->numcomps,
                                        [](const opj_image_comp_t& channel) { return channel.data != nullptr; });
    return isComplete ? toImage(*image, static_cast<int>(width), static_cast<int>(height)) : QImage();
}

} // namespace zelmo
