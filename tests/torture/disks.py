"""File systems on images in memory that can be filled, thinned, torn out, cut off and pulled. For root only; all mounts
are in a name space of their own and vanish with the process."""
import ctypes
import fcntl
import os
import shutil
import subprocess
from pathlib import Path

MAKERS = {"ext4": ["mkfs.ext4", "-qF"], "xfs": ["mkfs.xfs", "-qf"], "btrfs": ["mkfs.btrfs", "-qf"]}
IMAGE_SIZE = 320 << 20
SHUT_DOWN = 0x8004587D  # _IOR('X', 125, __u32), the same on ext4 and XFS
WITHOUT_LOG = b"\2\0\0\0"
NEW_MOUNTS = 0x00020000


def shell(*words):
    subprocess.run([str(word) for word in words], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)


def own_mounts():
    """Why there can be none, or an empty text."""
    if os.geteuid() != 0:
        return "only an administrator can mount disks"
    if ctypes.CDLL(None, use_errno=True).unshare(NEW_MOUNTS) != 0:
        return "no mounts of our own: " + os.strerror(ctypes.get_errno())
    try:
        shell("mount", "--make-rprivate", "/")
        shell("losetup", "--find")
    except (OSError, subprocess.CalledProcessError) as error:
        return f"no disks to mount: {error}"
    return ""


def usable_systems(folder):
    """A fresh image of each file system that this machine can make and mount, made once."""
    images = {}
    for system, maker in MAKERS.items():
        image = folder / system
        try:
            with open(image, "wb") as file:
                file.truncate(IMAGE_SIZE)
            shell(*maker, image)
            disk = Disk(folder / "try", image)
            disk.remove()
            images[system] = image
        except (OSError, subprocess.CalledProcessError):
            image.unlink(missing_ok=True)
    return images


class Disk:
    """A disk mounted at `folder`/disk, on an image on a disk of its own."""

    def __init__(self, folder, template):
        self.backing, self.point = folder / "backing", folder / "disk"
        self.image, self.saved = self.backing / "image", self.backing / "saved"
        self.is_attached = False
        for path in (self.backing, self.point):
            path.mkdir(parents=True)
        shell("mount", "-t", "tmpfs", "-o", "size=2g", "none", self.backing)
        self.copy(template, self.image)
        self.attach()

    @staticmethod
    def copy(source, target):
        shell("cp", "--sparse=always", "--reflink=never", source, target)

    def attach(self):
        shell("mount", "-o", "loop", self.image, self.point)
        self.is_attached = True
        self.device = subprocess.run(["losetup", "-nO", "NAME", "-j", self.image], check=True, capture_output=True,
                                     text=True).stdout.strip()
        # Small requests: the loop device hides the failure of a request that could be written in part.
        Path(f"/sys/block/{Path(self.device).name}/queue/max_sectors_kb").write_text("4")

    def detach(self, *options):
        if self.is_attached:
            shell("umount", *options, self.point)
            self.is_attached = False

    def sync(self):
        shell("sync", "-f", self.point)

    def thin(self, room):
        """Promises more than `room` bytes more."""
        self.sync()
        used = os.statvfs(self.backing)
        size = (used.f_blocks - used.f_bfree) * used.f_bsize + room
        shell("mount", "-o", f"remount,size={size}", self.backing)

    def thicken(self):
        self.detach()
        shell("mount", "-o", "remount,size=2g", self.backing)
        self.attach()

    def save_image(self):
        """What is on the disk at this moment."""
        for _ in range(20):
            before = self.image.stat().st_mtime_ns
            self.copy(self.image, self.saved)
            if self.image.stat().st_mtime_ns == before:
                break

    def restart(self):
        """With the image that was saved, if any."""
        self.detach()
        if self.saved.exists():
            self.saved.rename(self.image)
        self.attach()

    def shut_down(self):
        """Without writing the log: what the disk has not got yet is lost."""
        descriptor = os.open(self.point, os.O_RDONLY | os.O_DIRECTORY)
        try:
            fcntl.ioctl(descriptor, SHUT_DOWN, WITHOUT_LOG)
        finally:
            os.close(descriptor)

    def tear_out(self):
        """Every request fails from now on; what is on the disk is saved before."""
        self.save_image()
        os.truncate(self.image, 0)
        shell("losetup", "-c", self.device)

    def remove(self):
        for point in (self.point, self.backing):
            subprocess.run(["umount", "-l", point], check=False, stderr=subprocess.DEVNULL)
        shutil.rmtree(self.point.parent, ignore_errors=True)
