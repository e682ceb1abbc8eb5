#include "settings/SessionActions.h"

namespace ostvt {
namespace {

struct ActionTitle {
  int32_t action;
  int32_t text;
};

// Actions without code behind them keep their numbers and titles.
constexpr ActionTitle kTitles[] = {
    {1, 2401},  {2, 2405},  {14, 2402}, {15, 2403}, {16, 2404}, {4, 2451},  {17, 2456}, {3, 2452},
    {18, 2455}, {7, 2453},  {39, 2450}, {9, 2454},  {10, 2406}, {19, 2410}, {21, 2408}, {22, 2409},
    {20, 2407}, {23, 2411}, {24, 2412}, {26, 2413}, {25, 2414}, {27, 2460}, {28, 2464}, {29, 2472},
    {31, 2463}, {8, 2457},  {30, 2458}, {41, 2485}, {42, 2486}, {13, 2487}, {11, 2461}, {5, 2483},
    {6, 2484},  {32, 2459}, {33, 2465}, {34, 2466}, {12, 2467}, {35, 2468}, {36, 2470}, {37, 2469},
    {43, 2481}, {44, 2482}, {45, 2462}, {46, 2488}, {47, 2415}, {48, 2489}, {49, 2490},
};

}  // namespace

int32_t ActionTitleOf(int32_t action) {
  for (const ActionTitle& title : kTitles) {
    if (title.action == action) return title.text;
  }
  return 0;
}

}  // namespace ostvt
