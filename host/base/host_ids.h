/* Resource ids of the host. */
#pragma once

#define IDD_TREE_PAGE 100
#define IDC_TREE 1001
#define IDC_TREE_LIST 1002
#define IDC_TREE_NUMBER 1003
#define IDC_TREE_ARROWS 1004

#define IDB_TREE_ICONS 200
/* Images of the strip. */
#define kTreeImagePrinter 0
#define kTreeImageColor 1
#define kTreeImageOption 2
#define kTreeImagePostScript 3

#define IDS_STANDARD_GRAPHIC 1
#define IDS_STANDARD_QUALITY 2
#define IDS_STANDARD_ICM 3
#define IDS_STANDARD_ICM_METHOD 4
#define IDS_STANDARD_ICM_INTENT 5
#define IDS_STANDARD_SCALING 6
#define IDS_STANDARD_TTOPTION 7
#define IDS_STANDARD_NO 8
#define IDS_STANDARD_YES 9
#define IDS_STANDARD_TT_DOWNLOAD 10
#define IDS_STANDARD_TT_DEVICE 11
#define IDS_PREFERENCES_TITLE 20
#define IDS_PROPERTIES_TITLE 21
