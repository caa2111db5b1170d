#pragma once

// What the stand-in says when no scenario tells it otherwise, in the manner of ffmpeg 5.1.

inline constexpr const char *defaultReport =
    "ffmpeg version 5.1.9-0+deb12u1 Copyright (c) 2000-2026 the FFmpeg developers\n"
    "  built with gcc 12 (Debian 12.2.0-14+deb12u1)\n"
    "  configuration: --prefix=/usr --extra-version=0+deb12u1 --toolchain=hardened\n"
    "  libavutil      57. 28.100 / 57. 28.100\n"
    "  libavcodec     59. 37.100 / 59. 37.100\n"
    "  libavformat    59. 27.100 / 59. 27.100\n"
    "  libavdevice    59.  7.100 / 59.  7.100\n"
    "  libavfilter     8. 44.100 /  8. 44.100\n"
    "  libswscale      6.  7.100 /  6.  7.100\n"
    "  libswresample   4.  7.100 /  4.  7.100\n"
    "  libpostproc    56.  6.100 / 56.  6.100\n"
    "Input #0, matroska,webm, from '@INPUT@':\n"
    "  Metadata:\n"
    "    ENCODER         : Lavf59.27.100\n"
    "  Duration: 00:01:40.00, start: 0.000000, bitrate: 1280 kb/s\n"
    "  Stream #0:0: Video: h264 (High), yuv420p(tv, bt709, progressive), 1280x720 "
    "[SAR 1:1 DAR 16:9], 25 fps, 25 tbr, 1k tbn (default)\n"
    "    Metadata:\n"
    "      DURATION        : 00:01:40.000000000\n"
    "  Stream #0:1(eng): Audio: aac (LC), 48000 Hz, stereo, fltp (default)\n"
    "    Metadata:\n"
    "      DURATION        : 00:01:40.000000000\n"
    "At least one output file must be specified\n";

inline constexpr const char *defaultProgress =
    "frame=1250\nfps=0.0\nbitrate=  64.0kbits/s\nout_time_us=50000000\nout_time_ms=50000000\n"
    "out_time=00:00:50.000000\nspeed= 100x\nprogress=continue\n"
    "frame=2500\nfps=0.0\nbitrate=  64.0kbits/s\nout_time_us=100000000\nout_time_ms=100000000\n"
    "out_time=00:01:40.000000\nspeed= 100x\nprogress=end\n";
