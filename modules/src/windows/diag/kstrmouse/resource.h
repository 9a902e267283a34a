#pragma once
// Resource ids of the module; the dialog Parts add theirs here.
#define IDR_MANIFEST 1
#define IDR_VERSION 1

// Icons.
#define IDI_MOUSE 106

// Dialog templates.
#define IDD_KSTRMOUSE_DIALOG 102
#define IDD_KSTRMOUSE_MOREINFO 146

// Bitmaps of the classic dialog (rendered into pictures.rc under these numbers).
#define IDB_DRAG_SOURCE 143
#define IDB_DROP_TARGET_EMPTY 144
#define IDB_DROP_TARGET_FILLED 145
#define IDB_WHEEL_UP 147
#define IDB_WHEEL_DOWN 148
#define IDB_MOUSE2_LEFT 149
#define IDB_MOUSE2_IDLE 150
#define IDB_MOUSE2_RIGHT 151
#define IDB_MOUSE3_IDLE 153
#define IDB_WHEEL_IDLE 154
#define IDB_NUB_IDLE 155
#define IDB_MOUSE3_LEFT 156
#define IDB_WHEEL_LEFT 157
#define IDB_NUB_LEFT 158
#define IDB_MOUSE3_RIGHT 159
#define IDB_WHEEL_RIGHT 160
#define IDB_NUB_RIGHT 161
#define IDB_MOUSE3_MIDDLE 165
#define IDB_WHEEL_MIDDLE 166
#define IDB_NUB_CENTRE 167
#define IDB_TILT_LEFT 177
#define IDB_TILT_RIGHT 178

// Controls of the classic dialog.
#define IDC_GROUP_INSTRUCTIONS 1000
#define IDC_GROUP_MOUSE_STATUS 1001
#define IDC_GROUP_DRAG_DROP 1002
#define IDC_GROUP_DOUBLE_CLICK 1003
#define IDC_MORE_INFO 1004
#define IDC_FAIL 1005
#define IDC_SMILEY 1006
#define IDC_NON_SMILEY 1007
#define IDC_PASS 1008
#define IDC_DRAG_SOURCE 1023
#define IDC_DROP_TARGET 1024
#define IDC_DROP_TARGET_FILLED 1025
#define IDC_WHEEL_UP 1026
#define IDC_WHEEL_DOWN 1027
#define IDC_POSITION_LABEL 1028
#define IDC_POSITION_X 1029
#define IDC_POSITION_Y 1030
#define IDC_INSTRUCTIONS 1031
#define IDC_TILT_LEFT 1032
#define IDC_TILT_RIGHT 1033
// Mouse pictures, one per picture set and held button, all in one rectangle.
#define IDC_WHEEL_LEFT 1035
#define IDC_WHEEL_RIGHT 1036
#define IDC_WHEEL_IDLE 1037
#define IDC_MOUSE3_IDLE 1038
#define IDC_WHEEL_MIDDLE 1039
#define IDC_NUB_RIGHT 1040
#define IDC_MOUSE3_LEFT 1041
#define IDC_MOUSE3_RIGHT 1042
#define IDC_MOUSE2_IDLE 1043
#define IDC_MOUSE2_LEFT 1044
#define IDC_MOUSE2_RIGHT 1045
#define IDC_MOUSE3_MIDDLE 1046
#define IDC_NUB_IDLE 1047
#define IDC_NUB_LEFT 1048
#define IDC_NUB_CENTRE 1049
#define IDC_PASS_DESCRIPTION 1050
#define IDC_FAIL_DESCRIPTION 1051
#define IDC_WHEEL_SCALE_TOP 1062
#define IDC_WHEEL_SCALE_BOTTOM 1063
#define IDC_WHEEL_BAR 1064
// The wheel bar's value label is the template's one unnamed static.
#define IDC_WHEEL_VALUE (-1)

// Controls of the More Info dialog.
#define IDC_MORE_INFO_TEXT 1052

// Touchpad and TrackPoint dialog: template, icons by device type, controls.
#define IDD_SYNAPTICS_DIALOG 1053
#define IDI_TOUCHPAD 107
#define IDI_TRACKPOINT 108
#define IDC_SYN_GROUP_INSTRUCTIONS 1000
#define IDC_SYN_FAIL 1005
#define IDC_SYN_PASS 1008
#define IDC_SYN_INSTRUCTIONS 1031
#define IDC_SYN_X_LABEL 1052
#define IDC_SYN_Y_LABEL 1053
#define IDC_SYN_X_VALUE 1054
#define IDC_SYN_GROUP_STATUS 1055
#define IDC_SYN_Y_VALUE 1056
#define IDC_SYN_ROW3_LABEL 1057
#define IDC_SYN_ROW3_VALUE 1058
#define IDC_SYN_ROW4_LABEL 1059
#define IDC_SYN_ROW5_LABEL 1060
#define IDC_SYN_ROW4_VALUE 1061
#define IDC_SYN_ROW5_VALUE 1062
// The device picture: an id of its own, so that the X value field keeps 1054 to itself.
#define IDC_SYN_DEVICE 1063

// Click test dialog: template, drag feedback bitmap and controls. The mouse pictures all share
// one rectangle; which picture a control carries depends on the layout (default or gaming).
#define IDD_MOUSE_CLICK_TEST 181
#define IDB_DRAG_FEEDBACK 192
#define IDC_CT_MOUSE_START 1067
#define IDC_CT_LEFT_PRESSED 1069
#define IDC_CT_LEFT_SUCCESS 1070
#define IDC_CT_RIGHT_PRESSED 1071
#define IDC_CT_RIGHT_SUCCESS 1072
#define IDC_CT_MIDDLE_PRESSED 1073
#define IDC_CT_MIDDLE_SUCCESS 1074
#define IDC_CT_DOUBLE_CLICK_TARGET 1075
#define IDC_CT_DOUBLE_CLICK_SUCCESS 1076
#define IDC_CT_FAIL 1077
#define IDC_CT_DOUBLE_CLICK_HOVER 1078
#define IDC_CT_DRAG_ITEM 1079
#define IDC_CT_SKIP 1080
#define IDC_CT_DROP_AREA 1081
#define IDC_CT_SIDE1_PRESSED 1082
#define IDC_CT_SIDE1_SUCCESS 1083
#define IDC_CT_SIDE2_PRESSED 1084
#define IDC_CT_SIDE2_SUCCESS 1085
#define IDC_CT_MIDDLE_SKIPPED 1086
#define IDC_CT_SIDE1_SUCCESS_SKIPPED 1087
#define IDC_CT_CLOSE 1088
#define IDC_CT_SIDE2_SUCCESS_SKIPPED 1089
#define IDC_CT_DROP_SUCCESS 1090
#define IDC_CT_POSITION_LABEL 1091
#define IDC_CT_POSITION_VALUE 1092
#define IDC_CT_WHEEL_VALUE 1093
#define IDC_CT_WHEEL_BAR 1094
#define IDC_CT_WHEEL_SUCCESS 1095
#define IDC_CT_WHEEL_UP 1096
#define IDC_CT_WHEEL_DOWN 1097
#define IDC_CT_SIDE1_PRESSED_SKIPPED 1098
#define IDC_CT_SIDE2_PRESSED_SKIPPED 1099

// Classic dialog: the line of checks still to do.
#define IDC_MISSING_CHECKS 1117
// Classic dialog: the marks of each tilt direction and side button.
#define IDC_CONTROL_MARKS 1118

// Pointer quality dialog.
#define IDD_POINTER_QUALITY 1100
#define IDC_PQ_GROUP_INSTRUCTIONS 1101
#define IDC_PQ_INSTRUCTIONS 1102
#define IDC_PQ_GROUP_RATE 1103
#define IDC_PQ_HISTOGRAM 1104
#define IDC_PQ_RATE 1106
#define IDC_PQ_INTERVALS 1107
#define IDC_PQ_GROUP_BUTTONS 1108
#define IDC_PQ_BUTTONS 1109
#define IDC_PQ_WHEEL 1110
#define IDC_PQ_GROUP_IDLE 1111
#define IDC_PQ_HANDS_OFF 1112
#define IDC_PQ_IDLE 1113
#define IDC_PQ_STATUS 1114
#define IDC_PQ_PASS 1115
#define IDC_PQ_FAIL 1116

// Touchpad quality dialog.
#define IDD_TOUCHPAD_QUALITY 1200
#define IDC_TQ_GROUP_INSTRUCTIONS 1201
#define IDC_TQ_INSTRUCTIONS 1202
#define IDC_TQ_GROUP_COVERAGE 1203
#define IDC_TQ_MAP 1204
#define IDC_TQ_CELLS 1206
#define IDC_TQ_GROUP_FIGURES 1207
#define IDC_TQ_FINGERS 1208
#define IDC_TQ_REST 1209
#define IDC_TQ_RATE_ONE 1210
#define IDC_TQ_RATE_SEVERAL 1211
#define IDC_TQ_CLICKS 1212
#define IDC_TQ_RESOLUTION 1213
#define IDC_TQ_SIZE 1214
#define IDC_TQ_GROUP_IDLE 1215
#define IDC_TQ_HANDS_OFF 1216
#define IDC_TQ_IDLE 1217
#define IDC_TQ_STATUS 1218
#define IDC_TQ_PASS 1219
#define IDC_TQ_FAIL 1220
