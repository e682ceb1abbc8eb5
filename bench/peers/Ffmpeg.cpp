// What the library asks of C++.
#define __STDC_CONSTANT_MACROS
#include <cstdint>

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}

#include <cstdio>
#include <cstdlib>

#include "bench/peers/Peers.h"

namespace peers {
namespace {

void Check(bool isGood, const char* step) {
  if (isGood) return;
  std::fprintf(stderr, "ffmpeg: %s failed\n", step);
  std::exit(1);
}

AVFrame* NewFrame(int width, int height) {
  AVFrame* frame = av_frame_alloc();
  frame->format = AV_PIX_FMT_BGRA;
  frame->width = width;
  frame->height = height;
  Check(av_frame_get_buffer(frame, 0) >= 0, "a frame");
  return frame;
}

void PutPixel(AVFrame* frame, int x, int y, uint8_t blue, uint8_t green, uint8_t red) {
  uint8_t* pixel = frame->data[0] + y * frame->linesize[0] + x * 4;
  pixel[0] = blue;
  pixel[1] = green;
  pixel[2] = red;
  pixel[3] = 255;
}

AVFrame* PictureFrame(const Source& source) {
  AVFrame* frame = NewFrame(source.Width, source.Height);
  const uint8_t* pixel = source.Colors.data();
  for (int y = 0; y < source.Height; ++y) {
    for (int x = 0; x < source.Width; ++x, pixel += 3) {
      PutPixel(frame, x, y, pixel[0], pixel[1], pixel[2]);
    }
  }
  return frame;
}

// The filter takes 256 colours; those beyond the sixteen repeat the last.
AVFrame* PaletteFrame() {
  AVFrame* frame = NewFrame(16, 16);
  for (int i = 0; i < 256; ++i) {
    const uint8_t* color = kSixteenColors[i < 16 ? i : 15];
    PutPixel(frame, i % 16, i / 16, color[2], color[1], color[0]);
  }
  return frame;
}

AVFilterContext* AddSource(AVFilterGraph* graph, const char* name, int width, int height) {
  char options[128];
  std::snprintf(options, sizeof options,
                "video_size=%dx%d:pix_fmt=bgra:time_base=1/25:pixel_aspect=1/1", width, height);
  AVFilterContext* context = nullptr;
  Check(avfilter_graph_create_filter(&context, avfilter_get_by_name("buffer"), name, options,
                                     nullptr, graph) >= 0,
        "a source");
  return context;
}

// One filter, kept for all runs: a frame goes in and the dithered one comes out.
double Measure(const Source& source, AVFrame* picture, const char* options) {
  AVFilterGraph* graph = avfilter_graph_alloc();
  graph->nb_threads = 1;
  AVFilterContext* pictures = AddSource(graph, "pictures", source.Width, source.Height);
  AVFilterContext* palettes = AddSource(graph, "palettes", 16, 16);
  AVFilterContext* dither = nullptr;
  AVFilterContext* sink = nullptr;
  Check(avfilter_graph_create_filter(&dither, avfilter_get_by_name("paletteuse"), "dither", options,
                                     nullptr, graph) >= 0 &&
            avfilter_graph_create_filter(&sink, avfilter_get_by_name("buffersink"), "sink", nullptr,
                                         nullptr, graph) >= 0 &&
            avfilter_link(pictures, 0, dither, 0) >= 0 &&
            avfilter_link(palettes, 0, dither, 1) >= 0 && avfilter_link(dither, 0, sink, 0) >= 0 &&
            avfilter_graph_config(graph, nullptr) >= 0,
        "the graph");
  AVFrame* palette = PaletteFrame();
  Check(av_buffersrc_add_frame(palettes, palette) >= 0, "the palette");
  Check(av_buffersrc_add_frame(palettes, nullptr) >= 0, "the end of palettes");
  AVFrame* result = av_frame_alloc();
  int64_t time = 0;
  const double seconds = BestSeconds([&] {
    picture->pts = time++;
    Check(av_buffersrc_add_frame_flags(pictures, picture, AV_BUFFERSRC_FLAG_KEEP_REF) >= 0,
          "a picture");
    Check(av_buffersink_get_frame(sink, result) >= 0, "a result");
    av_frame_unref(result);
  });
  av_frame_free(&result);
  av_frame_free(&palette);
  avfilter_graph_free(&graph);
  return seconds;
}

}  // namespace

void MeasureFfmpeg(const Source& source, Results* results) {
  AVFrame* picture = PictureFrame(source);
  results->push_back({kPaletteOrdered, "ffmpeg", Measure(source, picture, "dither=bayer")});
  results->push_back(
      {kPaletteFloydSteinberg, "ffmpeg", Measure(source, picture, "dither=floyd_steinberg")});
  av_frame_free(&picture);
}

}  // namespace peers
