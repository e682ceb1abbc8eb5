// The ids of what the language modules hold: control ids by template, then strings. Read by the
// resource compiler and by the pages, so it has nothing but #define.
//
// Templates, menus and named bitmaps go by name ("*:PAGE_SETUP"). Strings that no page asks for
// by a name of this file stand in the .rc files by number alone, with a comment on their use.
// The up-down control of edit box n, where there is one, has id n | 16384.
#pragma once

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// "*:PAGE_SETUP". The orientations stand in the order of their stored numbers.
#define IDC_STOCK 1001
#define IDC_STOCK_NEW 1002
#define IDC_STOCK_EDIT 1003
#define IDC_STOCK_DELETE 1004
#define IDC_ORIENTATION_PORTRAIT 1005
#define IDC_ORIENTATION_LANDSCAPE 1006
#define IDC_ORIENTATION_ROTATED_PORTRAIT 1007
#define IDC_ORIENTATION_ROTATED_LANDSCAPE 1008
#define IDC_MIRROR 1009
#define IDC_NEGATIVE 1010
#define IDC_PRESET 1011
#define IDC_PRESETS 1012
#define IDC_ADVANCED 1013
#define IDC_PREVIEW 1014
// Hidden when the definitions have no copyright text; the driver's own line is always there.
#define IDC_COPYRIGHT 1015
#define IDC_DRIVER_COPYRIGHT 1016

// "*:PAGE_SETUP/^EDIT_STOCK"
#define IDC_STOCK_NAME 1101
#define IDC_STOCK_WIDTH 1102
#define IDC_STOCK_HEIGHT 1103
#define IDC_MARGIN_LEFT 1104
#define IDC_MARGIN_RIGHT 1105
#define IDC_MARGIN_TOP 1106
#define IDC_MARGIN_BOTTOM 1107

// "*:PAGE_SETUP/^PRESETS"
#define IDC_PRESET_LIST 1201
#define IDC_PRESET_NAME 1202
#define IDC_PRESET_DESCRIPTION 1203
#define IDC_PRESET_NEW 1204
#define IDC_PRESET_DELETE 1205

// "*:ADVANCED/USER_COMMANDS"
#define IDC_COMMAND_POINTS 1301
#define IDC_COMMAND_TEXT 1302
#define IDC_COMMAND_INSERT 1303
#define IDC_COMMAND_LOAD 1304

// "*:ADVANCED/USER_COMMANDS/INSERT"
#define IDC_INSERT_LIST 1401

// "*:ADVANCED/DRIVER_OPTIONS". A list view with two columns; of the two value controls, which
// lie in the same place, the one that suits the option is shown. The edit box is hidden at first.
#define IDC_OPTION_LIST 1501
#define IDC_OPTION_VALUE_LABEL 1502
#define IDC_OPTION_CHOICE 1503
#define IDC_OPTION_TEXT 1504

// "*:^NETWORK_ERROR/UI_CLIENT" and "*:^NETWORK_ERROR/UI_SERVER". Retry is control 1, OK.
#define IDC_TURN_OFF_COMMUNICATION 774
#define IDC_NETWORK_ERROR_ICON 1601

// "*:ABOUT". The definitions name the picture: bitmap "AboutVantrel" or "AboutKeldrum".
#define IDC_ABOUT_PICTURE 1701
#define IDC_ABOUT_PRODUCT 1702
#define IDC_ABOUT_VERSION 1703
#define IDC_ABOUT_COPYRIGHT 1704
#define IDC_ABOUT_TRADEMARKS 1705

// Units and numbers.
#define IDS_CENTIMETRES 471
#define IDS_DPI 472
#define IDS_DOTS_PER_MILLIMETRE 473
#define IDS_INCHES 479
#define IDS_MILS 481
#define IDS_MILLIMETRES 482

#define IDS_STOCK_VIEW 488  // label of the edit button while settings are read-only
#define IDS_STOCK_EDIT 489
#define IDS_NO_HELP_VIEWER 495

// Page Setup and its dialogs.
#define IDS_STOCK_DELETE_QUESTION 1325  // the caption is the stock's name
#define IDS_STOCK_NEW_NAME 1326
#define IDS_ADVANCED_TITLE 1340
#define IDS_DRIVER_SETTINGS_TITLE 1341
#define IDS_PRESET_CURRENT 4102
#define IDS_PRESET_FACTORY 4103
#define IDS_PRESET_CURRENT_DESCRIPTION 4104
#define IDS_PRESET_FACTORY_DESCRIPTION 4105
#define IDS_STOCK_NAME_CAPTION 4159
#define IDS_STOCK_NAME_RESERVED 4160  // "%s" is the name
#define IDS_STOCK_NAME_EMPTY 4161

// File dialogs.
#define IDS_SEND_FILE_TITLE 2317
#define IDS_SAVE_ANSWER_TITLE 2320
#define IDS_ALL_FILES 2330
#define IDS_TEXT_FILES 2333
#define IDS_PRINTER_FILES 2337  // "*.prn"

// Names of printer files. "%1" and "%2" are the least and the largest length.
#define IDS_NAME_LENGTH 4450
#define IDS_NAME_CHARACTERS 4451
#define IDS_NAME_CAPTION 4454

// Presets dialog.
#define IDS_PRESET_NEW_NAME 8001         // "%1" is a number
#define IDS_PRESET_DELETE_QUESTION 8002  // "%1" is the preset's name
#define IDS_PRESET_NAME_CAPTION 8003
#define IDS_PRESET_NAME_EMPTY 8004
#define IDS_PRESET_NAME_USED 8005  // "%1" is the name
#define IDS_STOCK_NAME_USED 8006   // "%s" is the name

// User commands: the points in the order of their texts in the device mode.
#define IDS_COMMAND_POINT_FIRST 8010
#define IDS_COMMAND_START_OF_JOB 8010
#define IDS_COMMAND_START_OF_PAGE 8011
#define IDS_COMMAND_END_OF_PAGE 8012
#define IDS_COMMAND_END_OF_JOB 8013
#define IDS_COMMAND_LOAD_TITLE 8014
#define IDS_COMMAND_CAPTION 8015
#define IDS_COMMAND_TOO_LONG 8016    // "%1" is the limit in bytes
#define IDS_COMMAND_UNREADABLE 8017  // "%1" is the file's name

// What can be inserted in a command; the page shows the escape that stands for it beside its name.
#define IDS_INSERT_FIRST 8020
#define IDS_INSERT_ESCAPE 8020
#define IDS_INSERT_CARRIAGE_RETURN 8021
#define IDS_INSERT_LINE_FEED 8022
#define IDS_INSERT_TAB 8023
#define IDS_INSERT_START_OF_TEXT 8024
#define IDS_INSERT_END_OF_TEXT 8025
#define IDS_INSERT_FORM_FEED 8026
#define IDS_INSERT_NUL 8027
#define IDS_INSERT_BACKSLASH 8028
#define IDS_INSERT_BYTE 8029
#define IDS_INSERT_LAST 8029

// Driver options: columns, values, then a label for each option in the order of DriverOption.
#define IDS_OPTION_COLUMN 8040
#define IDS_OPTION_VALUE_COLUMN 8041
#define IDS_OPTION_OFF 8042
#define IDS_OPTION_ON 8043
#define IDS_OPTION_DEFAULT 8044         // shown for a figure of 0: as the model has it
#define IDS_OPTION_TRACKING_FIRST 8045  // in the order of the stored numbers
#define IDS_OPTION_TRACKING_RIGHT 8045
#define IDS_OPTION_TRACKING_LEFT 8046
#define IDS_OPTION_TRACKING_CENTER 8047
#define IDS_OPTION_MILLISECONDS 8048  // unit behind a number
#define IDS_OPTION_FIRST 8050
#define IDS_OPTION_FUNCTION_CHARACTER 8050
#define IDS_OPTION_DISABLE_COPIES_LIMIT 8051
#define IDS_OPTION_OFFICE_COMPATIBILITY 8052
#define IDS_OPTION_OVERRIDE 8053
#define IDS_OPTION_X_RESOLUTION 8054
#define IDS_OPTION_Y_RESOLUTION 8055
#define IDS_OPTION_PRINTABLE_WIDTH 8056
#define IDS_OPTION_TRACKING 8057
#define IDS_OPTION_MINIMUM_PAGE_WIDTH 8058
#define IDS_OPTION_MAXIMUM_PAGE_WIDTH 8059
#define IDS_OPTION_MINIMUM_PAGE_LENGTH 8060
#define IDS_OPTION_MAXIMUM_PAGE_LENGTH 8061
#define IDS_OPTION_LOGGING 8062
#define IDS_OPTION_OVERWRITE_FILES 8063
#define IDS_OPTION_PRINT_CODE_RECORDING 8064
#define IDS_OPTION_DIRECTORY 8065
#define IDS_OPTION_LOG_FILE 8066
#define IDS_OPTION_MONITOR_STATUS 8067
#define IDS_OPTION_QUERY_BEFORE_JOB 8068
#define IDS_OPTION_VERIFY_JOB_COMPLETE 8069
#define IDS_OPTION_SHOW_ON_ERROR 8070
#define IDS_OPTION_SYSTEM_TRAY_ICON 8071
#define IDS_OPTION_WRITE_TIMEOUT 8072
#define IDS_OPTION_JOB_COMPLETE_TIMEOUT 8073
#define IDS_OPTION_QUERY_INTERVAL 8074
#define IDS_OPTION_USE_ADVANCED_LENGTH 8080
#define IDS_OPTION_ADVANCED_LENGTH 8081
#define IDS_OPTIONS_NOT_SAVED 8082
#define IDS_STOCK_NOT_SAVED 8083
#define IDS_PRESETS_NOT_SAVED 8084

// About page.
#define IDS_ABOUT_VERSION \
  8090  // "%1" is the version, " (%2)" the date of the build, left out without one
