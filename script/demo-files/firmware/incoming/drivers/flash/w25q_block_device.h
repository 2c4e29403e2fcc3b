#ifndef W25Q_BLOCK_DEVICE_H
#define W25Q_BLOCK_DEVICE_H

#include <stddef.h>
#include <stdint.h>

#define W25Q_SECTOR_SIZE 4096u
#define W25Q_PAGE_SIZE 256u
#define W25Q_IDLE_POLLS 4000

typedef struct {
    uint8_t spi_bus;
    uint8_t chip_select;
    uint32_t sectors;
} w25q_device;

int w25q_open(w25q_device *device);
int w25q_read(w25q_device *device, uint32_t address, void *buffer, size_t length);
int w25q_erase_sector(w25q_device *device, uint32_t sector);

#endif
