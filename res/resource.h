/* Names of the resources. Plain numbers only: portable code names message texts with them too.
   In a run of similar controls, number k has the id FIRST + k. */
#pragma once

/* For texts and frames that the program never asks for. */
#ifndef IDC_STATIC
#define IDC_STATIC -1
#endif

/* Dialogs, menu, icons. */
#define IDD_MAIN 102
#define IDD_PREFS 159
#define IDD_ABOUT 160
#define IDR_METER_MENU 129
#define IDR_KEYS 130
#define IDI_PLOTVANE 129
#define IDI_BUTTON_FIRST 130 /* 130..140, the images of the push buttons */
#define IDI_PAUSE_IDLE 130
#define IDI_PAUSE_ACTIVE 131
#define IDI_STOP_IDLE 132
#define IDI_STOP_ACTIVE 133
#define IDI_LOAD_IDLE 134
#define IDI_LOAD_ACTIVE 135
#define IDI_PLAY_IDLE 136   /* starts over */
#define IDI_PLAY_ACTIVE 137 /* goes on after a hold */
#define IDI_PLUS 138
#define IDI_MINUS 139
#define IDI_FUEL 140

/* Main dialog: chart and run buttons. */
#define IDC_CHART_FRAME 1000
#define IDC_STOP 1002
#define IDC_PAUSE 1003
#define IDC_LOAD_LOG 1004
#define IDC_MOVED_FIRST 1002 /* a relayout moves the controls of this run */
#define IDC_MOVED_LAST 1112

/* Main dialog: scale boxes. */
#define IDC_SCALE_NEXT 1005
#define IDC_SCALE_PREVIOUS 1006
#define IDC_SHIFT_DOWN 1007
#define IDC_SHIFT_UP 1008
#define IDC_SCALE_MIN 1054
#define IDC_SCALE_MAX 1055
#define IDC_SHIFT_LABEL 1079
#define IDC_VERTICAL_SCALE 1080
#define IDC_HORIZONTAL_SCALE 1081
#define IDC_MAX_LABEL 1082
#define IDC_MIN_LABEL 1083

/* Main dialog: the twelve slots. */
#define IDC_SWATCH_FIRST 1009
#define IDC_VALUE_FIRST 1031
#define IDC_VALUE_LAST 1042
#define IDC_SHOW_FIRST 1056
#define IDC_SHOW_LAST 1067
#define IDC_FRAME_ROW_C_FIRST 1084 /* slots 8..11 */
#define IDC_FRAME_ROW_B_FIRST 1088 /* slots 4..7 */
#define IDC_FRAME_ROW_A_FIRST 1092 /* slots 0..3 */
#define IDC_AIR_FUEL_FIRST 1101    /* not in slot order, see AirFuelButtonOf */
#define IDC_AIR_FUEL_LAST 1112

/* Main dialog: the ten channels. */
#define IDC_CHANNEL_SWATCH_FIRST 1021
#define IDC_CHANNEL_VALUE_FIRST 1043
#define IDC_CHANNEL_SHOW_FIRST 1068
#define IDC_CHANNEL_SHOW_LAST 1077

/* Main dialog: replay and fuel. */
#define IDC_ELAPSED 1053
#define IDC_REPLAY_SPEED 1078
#define IDC_REPLAY_GROUP 1096
#define IDC_REPLAY_FASTER 1097
#define IDC_REPLAY_SLOWER 1098
#define IDC_MILEAGE 1099
#define IDC_CONSUMPTION 1100

/* Main dialog: placed at run time; outside the run that a relayout moves. */
#define IDC_SHOW_FOCUS 1299
#define IDC_CHART 1300
#define IDC_SWATCH_WINDOW_FIRST 1310
#define IDC_CHANNEL_SWATCH_WINDOW_FIRST 1330
#define IDC_PREFS_SWATCH_WINDOW_FIRST 1350

/* Preferences dialog. */
#define IDC_PREFS_NEW_ROW 1200
#define IDC_PREFS_BACK_RED_TEXT 1203 /* green, blue follow; then grid and trace */
#define IDC_PREFS_GRID_RED_TEXT 1206
#define IDC_PREFS_TRACE_RED_TEXT 1209
#define IDC_PREFS_ROW_LABEL 1212
#define IDC_PREFS_GRID_SWATCH 1213
#define IDC_PREFS_TRACE_SWATCH 1214
#define IDC_PREFS_BACK_SWATCH 1215
#define IDC_PREFS_BACK_RED 1216
#define IDC_PREFS_GRID_RED 1217
#define IDC_PREFS_BACK_GREEN 1218
#define IDC_PREFS_GRID_GREEN 1219
#define IDC_PREFS_BACK_BLUE 1220
#define IDC_PREFS_GRID_BLUE 1221
#define IDC_PREFS_TRACE_RED 1222
#define IDC_PREFS_TRACE_GREEN 1223
#define IDC_PREFS_TRACE_BLUE 1224
#define IDC_PREFS_TRACE_LIST 1225
#define IDC_PREFS_BACK_PRESET 1226
#define IDC_PREFS_GRID_PRESET 1227
#define IDC_PREFS_TRACE_PRESET 1228
#define IDC_PREFS_AUTORUN 1229
#define IDC_PREFS_SHOW_UNITS 1230
#define IDC_PREFS_SHOW_ZEROS 1231
#define IDC_PREFS_ROW_UNIT 1232
#define IDC_PREFS_SAVE_SIZE 1233
#define IDC_PREFS_THICKNESS 1234
#define IDC_PREFS_MAX_MILEAGE 1235
#define IDC_PREFS_MAX_CONSUMPTION 1236
#define IDC_PREFS_FUEL_DEPTH 1237
#define IDC_PREFS_HEADING_FIRST 1240 /* red, green, blue, presets */
#define IDC_PREFS_BACK_NAME 1244
#define IDC_PREFS_GRID_NAME 1245
#define IDC_PREFS_ROW_MIN 1054
#define IDC_PREFS_ROW_MAX 1055
#define IDC_PREFS_ROW_NEXT 1097
#define IDC_PREFS_ROW_PREVIOUS 1098

/* About dialog. */
#define IDC_ABOUT_VERSION 1237

/* System menu of the main dialog; the low four bits belong to the system. */
#define ID_SYSMENU_PREFERENCES 16
#define ID_SYSMENU_ABOUT 32

/* Context menu of a meter. */
#define ID_METER_MIN_MARKER 32775
#define ID_METER_MAX_MARKER 32776
#define ID_METER_NEEDLE_COLOUR 32777
#define ID_METER_FACE_COLOUR 32778
#define ID_METER_TICKS_COLOUR 32779
#define ID_METER_BACK_COLOUR 32780
#define ID_METER_RESET_PEAK 32781
#define ID_METER_SHOW_PEAK 32782
#define ID_METER_SWAP_COLOURS 32783

/* Keys. */
#define ID_KEY_FIRST 32800
#define ID_KEY_LOAD_LOG 32800
#define ID_KEY_PAUSE 32801
#define ID_KEY_STOP 32802
#define ID_KEY_SLOWER 32803
#define ID_KEY_FASTER 32804
#define ID_KEY_STEP_ROW 32805
#define ID_KEY_PREVIOUS 32806
#define ID_KEY_NEXT 32807
#define ID_KEY_SHIFT_DOWN 32808
#define ID_KEY_SHIFT_UP 32809
#define ID_KEY_METER 32810
#define ID_KEY_FIT 32811
#define ID_KEY_COPY 32812
#define ID_KEY_SAVE_PICTURE 32813
#define ID_KEY_PREFERENCES 32814
#define ID_KEY_MANUAL 32815
#define ID_KEY_HISTORY 32816
#define ID_KEY_LAST 32816

/* Texts. */
#define IDS_MENU_PREFERENCES 1
#define IDS_MENU_ABOUT 2
#define IDS_PIXEL_SHIFT 3
#define IDS_NO_EXCHANGE_FILE 4
#define IDS_CANNOT_RUN 5
#define IDS_BAD_LOG_HEADER 6
#define IDS_PARSING_ERROR 7
#define IDS_SCALING_NOT_SAVED 8
#define IDS_NOT_A_LOG 9
#define IDS_DOH 10
#define IDS_LOG_ROW_SHORT 11
#define IDS_UH_OH 12
#define IDS_LIVE_TITLE 13
#define IDS_CHOOSE_LOG 14
#define IDS_CANNOT_OPEN_FILE 15
#define IDS_ERROR 16
#define IDS_COMPLETE_FIELD_FIRST 17
#define IDS_MAX_ABOVE_MIN 18
#define IDS_FIELD_NUMBER 19
#define IDS_LINE 20
#define IDS_INTEGER_0_TO_10 21
#define IDS_INTEGER_1_TO_1000 22
#define IDS_INTEGER_1_TO_20 23
#define IDS_INCORRECT_VALUE 24
#define IDS_VERSION 25
#define IDS_DIAGNEL_LOGS 26
#define IDS_ALL_FILES 27
#define IDS_PRESET_COLOUR_FIRST 28 /* 28..41 */
#define IDS_METER 42
#define IDS_MILEAGE_CAPTION 43
#define IDS_CONSUMPTION_CAPTION 44
#define IDS_MPG 45
#define IDS_LITRES_PER_100KM 46
#define IDS_GALLONS_PER_HOUR 47
#define IDS_TITLE_HINT 48
#define IDS_PEAK 49
#define IDS_NO_MANUAL 60
#define IDS_SAVE_PICTURE 61
#define IDS_PNG_PICTURES 62
#define IDS_PICTURE_NOT_SAVED 63
#define IDS_PICTURE_NOT_COPIED 64
#define IDS_TIP_STOP 80
#define IDS_TIP_PAUSE 81
#define IDS_TIP_LOAD_LOG 82
#define IDS_TIP_REPLAY_SLOWER 83
#define IDS_TIP_REPLAY_FASTER 84
#define IDS_TIP_SCALE_NEXT 85
#define IDS_TIP_SCALE_PREVIOUS 86
#define IDS_TIP_SHIFT_DOWN 87
#define IDS_TIP_SHIFT_UP 88
#define IDS_TIP_MILEAGE 89
#define IDS_TIP_CONSUMPTION 90
#define IDS_TIP_AIR_FUEL 91
#define IDS_TIP_SHOW 92
#define IDS_TIP_GROUP 93
#define IDS_TIP_FIELD 94
#define IDS_TIP_PID 95
#define IDS_TIP_TO 96
#define IDS_NAME_CHART 105
#define IDS_NAME_COLOUR 106
#define IDS_NAME_VALUE 107
#define IDS_NAME_REPLAY_TIME 108
#define IDS_NAME_REPLAY_SPEED 109
#define IDS_NAME_PREVIOUS_UNIT 110
#define IDS_NAME_NEXT_UNIT 111
