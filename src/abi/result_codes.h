/* 16-bit result codes that travel between the host and a picker. Plain C.
 * 0 is success; negative codes are the system's and the host's; a positive code is a plug-in's own error. */
#ifndef CHROMALOG_ABI_RESULT_CODES_H
#define CHROMALOG_ABI_RESULT_CODES_H

enum {
    hostNoErr = 0,
    hostParamErr = -50,           /* a parameter is out of range */
    hostMemFullErr = -108,        /* no memory */
    hostUserCanceledErr = -128,   /* the user cancelled */
    hostMissingParameter = -1715, /* a parameter is missing */
    pickerBadParameters = -30800, /* the picker's record makes no sense */
    errPlugInHostInsufficient = -30900,
    errPlugInPropertyUndefined = -30901,
    errReportString = -30904 /* the host shows PickerRecord.errorString */
};

#endif
