/* Keeps callers of the first radio board working until they use the LoRa driver. */
#include "si4463.h"

int radio_send(const void *frame, unsigned length)
{
    return si4463_transmit(frame, length);
}
