// Shared with the resource compiler: only numbers.
#define IDD_INPUT 101
#define IDC_PROMPT 1101
#define IDC_ANSWER 1102
#define IDD_FSUIPC_STATUS 102
#define IDC_STATUS_TEXT 1201
#define IDD_MUTE_KEY 103
#define IDC_OPTION1 1301
#define IDC_OPTION4 1304
