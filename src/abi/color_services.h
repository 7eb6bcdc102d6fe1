/* The host's colour-services callback and its argument block. Plain C. */
#ifndef CHROMALOG_ABI_COLOR_SERVICES_H
#define CHROMALOG_ABI_COLOR_SERVICES_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

/* Selectors. This plug-in asks for conversions only. */
enum {
    plugIncolorServicesChooseColor = 0,
    plugIncolorServicesConvertColor = 1,
    plugIncolorServicesSamplePoint = 2,
    plugIncolorServicesGetSpecialColor = 3
};

/* Colour spaces of the host. -1 asks for the space that the user chose (choose-colour only). */
enum {
    plugIncolorServicesRGBSpace = 0,
    plugIncolorServicesHSBSpace = 1,
    plugIncolorServicesCMYKSpace = 2, /* 0..255, 255 = no ink */
    plugIncolorServicesLabSpace = 3,  /* L 0..255 = 0..100, a and b 0..255 = -128..127 */
    plugIncolorServicesGraySpace = 4,
    plugIncolorServicesHSLSpace = 5,
    plugIncolorServicesXYZSpace = 6,
    plugIncolorServicesChosenSpace = -1
};

/* Components travel in place, as 8-bit values in 16-bit slots: 0..255, hue 0..359. */
typedef struct ColorServicesInfo {
    int32_t infoSize; /* sizeof(ColorServicesInfo), set by the caller */
    int16_t selector;
    int16_t sourceSpace;
    int16_t resultSpace;
    uint8_t resultGamutInfoValid;  /* out: 1 where resultInGamut was set (CMYK results) */
    uint8_t resultInGamut;         /* out: 1 = printable with the current print set-up */
    void* reservedSourceSpaceInfo; /* must be null, else -50 */
    void* reservedResultSpaceInfo; /* must be null, else -50 */
    int16_t colorComponents[4];
    void* reserved; /* must be null, else -50 */
    union {
        unsigned char* pickerPrompt; /* choose colour */
        void* globalSamplePoint;     /* sample point */
        int32_t specialColorID;      /* special colour: 0 foreground, 1 background */
    } selectorParameter;
} ColorServicesInfo;

/* Returns 0, or an error and leaves the components alone. */
typedef int16_t (*ColorServicesProc)(ColorServicesInfo* info);

CHROMALOG_ABI_ASSERT(offsetof(ColorServicesInfo, resultSpace) == 8);
CHROMALOG_ABI_ASSERT(offsetof(ColorServicesInfo, reservedSourceSpaceInfo) == 16);
CHROMALOG_ABI_ASSERT(offsetof(ColorServicesInfo, colorComponents) == 32);
CHROMALOG_ABI_ASSERT(offsetof(ColorServicesInfo, selectorParameter) == 48);
CHROMALOG_ABI_ASSERT(sizeof(ColorServicesInfo) == 56);

#endif
