#include "w25q_block_device.h"

#include "spi.h"

enum { CMD_READ = 0x03, CMD_WRITE_ENABLE = 0x06, CMD_ERASE_4K = 0x20, CMD_STATUS = 0x05 };

static void send_address(w25q_device *device, uint8_t command, uint32_t address)
{
    const uint8_t header[4] = {command, address >> 16, address >> 8, address};
    spi_write(device->spi_bus, header, sizeof header);
}

static int wait_until_idle(w25q_device *device)
{
    for (int i = 0; i < W25Q_IDLE_POLLS; ++i) {
        const uint8_t command = CMD_STATUS;
        uint8_t status = 0;
        spi_select(device->chip_select);
        spi_write(device->spi_bus, &command, 1);
        spi_read(device->spi_bus, &status, 1);
        spi_release(device->chip_select);
        if ((status & 1) == 0)
            return 0;
    }
    return -1;
}

int w25q_read(w25q_device *device, uint32_t address, void *buffer, size_t length)
{
    spi_select(device->chip_select);
    send_address(device, CMD_READ, address);
    spi_read(device->spi_bus, buffer, length);
    spi_release(device->chip_select);
    return 0;
}

static void erase_once(w25q_device *device, uint32_t sector)
{
    spi_select(device->chip_select);
    send_address(device, CMD_ERASE_4K, sector * W25Q_SECTOR_SIZE);
    spi_release(device->chip_select);
}

int w25q_erase_sector(w25q_device *device, uint32_t sector)
{
    if (sector >= device->sectors)
        return -1;
    erase_once(device, sector);
    if (wait_until_idle(device) == 0)
        return 0;
    // One retry: a brown-out can abort an erase.
    erase_once(device, sector);
    return wait_until_idle(device);
}
