// Shared with the resource compiler: only numbers.
#define IDD_INPUT 101
#define IDC_PROMPT 1101
#define IDC_ANSWER 1102
#define IDD_FSUIPC_STATUS 102
#define IDC_STATUS_TEXT 1201
