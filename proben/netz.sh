#!/bin/sh
# netz.sh BUILD sshfs|cifs|nfs [MINUTES [MACHINES [PACE]]]: viele_maschinen.py over a network file system on the loopback. As root;
# what it needs is named at each kind. `cifs` and `nfs` are mounted by the kernel of Debian in three guests without hardware
# support (slow, so the pace is that of a school), as the machine's own kernel may know neither.
set -eu
build=$(realpath "$1")
art=$2
minuten=${3:-10}
maschinen=${4:-30}
tempo=${5:-1}
hier=$(realpath "$(dirname "$0")")
ort=$(mktemp -d /tmp/klopfmeise-netz-XXXXXX)
mkdir "$ort/frei" "$ort/frei/tagebuecher" "$ort/m1" "$ort/m2" "$ort/m3"
chmod -R 777 "$ort"
ende=:
qemus=
# What was found stays to be looked at.
trap 'gut=$?; for g in $qemus; do kill "$g" || :; done; eval "$ende"; [ $gut != 0 ] || rm -rf "$ort"' EXIT
trap 'exit 1' INT TERM

case $art in
sshfs) # openssh-server sshfs
    ssh-keygen -q -t ed25519 -N '' -f "$ort/schluessel"
    mkdir -p /run/sshd
    printf '%s\n' "Port 2291" "ListenAddress 127.0.0.1" "HostKey $ort/schluessel" "AuthorizedKeysFile $ort/schluessel.pub" \
        "StrictModes no" "PasswordAuthentication no" "PidFile $ort/pid" "Subsystem sftp internal-sftp" >"$ort/sshd"
    /usr/sbin/sshd -f "$ort/sshd"
    sleep 1
    ende='for m in 1 2 3; do umount "$ort/m$m"; done; kill "$(cat "$ort/pid")"'
    for m in 1 2 3; do
        sshfs -p 2291 -o "IdentityFile=$ort/schluessel,StrictHostKeyChecking=no,UserKnownHostsFile=/dev/null" \
            "$(id -un)@127.0.0.1:$ort/frei" "$ort/m$m"
    done
    nice python3 "$hier/viele_maschinen.py" "$build" --ort "$ort/frei" --minuten "$minuten" --maschinen "$maschinen" --tempo "$tempo" \
        --netz ja --zugang "$ort/m1/daten,$ort/m2/daten,$ort/m3/daten"
    exit
    ;;
cifs) # samba qemu-system-x86 busybox-static kmod cpio
    mkdir "$ort/smb"
    cat >"$ort/smb.conf" <<KONF
[global]
    smb ports = 4491
    interfaces = lo
    bind interfaces only = yes
    map to guest = Bad User
    guest account = root
    load printers = no
    disable netbios = yes
    log file = $ort/smb/log
    lock directory = $ort/smb
    state directory = $ort/smb
    cache directory = $ort/smb
    private dir = $ort/smb
    pid directory = $ort/smb
    ncalrpc dir = $ort/smb
[frei]
    path = $ort/frei
    read only = no
    guest ok = yes
    force user = root
KONF
    smbd -D -s "$ort/smb.conf"
    ende='kill "$(cat "$ort/smb/smbd.pid")"'
    modul="cmac ctr ghash-generic ccm gcm seqiv ecb aes_generic sha256_generic sha512_generic hmac md5 cifs"
    einbinden='mount -t cifs -o ip=10.0.2.2,port=4491,guest,sec=none,vers=3.0,uid=0 //10.0.2.2/frei /netz'
    ;;
nfs) # nfs-ganesha nfs-ganesha-vfs qemu-system-x86 busybox-static kmod cpio
    cat >"$ort/ganesha.conf" <<KONF
NFS_CORE_PARAM { Protocols = 4; NFS_Port = 2092; Bind_addr = 127.0.0.1; Enable_NLM = false; Enable_RQUOTA = false; }
NFSV4 { Grace_Period = 1; Lease_Lifetime = 10; RecoveryRoot = "$ort"; }
EXPORT { Export_Id = 1; Path = "$ort/frei"; Pseudo = "/frei"; Access_Type = RW; Squash = None; SecType = sys;
         FSAL { Name = VFS; } }
KONF
    ganesha.nfsd -f "$ort/ganesha.conf" -L "$ort/ganesha.log" -p "$ort/ganesha.pid"
    sleep 3
    ende='kill "$(cat "$ort/ganesha.pid")"'
    modul="nfsv4"
    einbinden='mount -t nfs4 -o vers=4.1,addr=10.0.2.2,clientaddr=10.0.2.15,port=2092,proto=tcp,sec=sys 10.0.2.2:/frei /netz'
    ;;
*)
    echo "unknown: $art" >&2
    exit 2
    ;;
esac

# The guests: a kernel from Debian's archive, taken as it is and not installed, and in memory what the player needs.
cd "$ort"
paket=$(apt-cache depends linux-image-cloud-amd64 | sed -n 's/.*Depends: //p')
apt-get download "$paket" >/dev/null 2>&1
dpkg -x "$paket"_*.deb kern
fassung=$(basename kern/lib/modules/*)
depmod -b kern "$fassung"
mkdir -p gast/bin gast/lib64 gast/proc gast/sys gast/tmp gast/netz gast/m
cp /bin/busybox gast/bin
cp "$build/proben/spieler" gast/spieler
ldd "$build/proben/spieler" | grep -o '/[^ ]*' | while read -r bibliothek; do
    mkdir -p "gast$(dirname "$bibliothek")"
    cp -L "$bibliothek" "gast$bibliothek"
done
printf '[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n"Datenablage"="/netz/daten/"\r\n"Pin"="7294"\r\n' >gast/maschine.reg
for m in virtio_pci virtio_net nls_utf8 $modul; do
    modprobe -d kern -S "$fassung" --show-depends --ignore-install $m
done | sed -n 's/^insmod //p' | awk '!da[$1]++' | while read -r datei rest; do
    cp "$datei" gast/m/
    echo "insmod /m/$(basename "$datei")"
done >laden
cat >gast/init <<INIT
#!/bin/busybox sh
/bin/busybox --install -s /bin
mount -t proc proc /proc; mount -t sysfs sys /sys; mount -t devtmpfs dev /dev; mount -t tmpfs -o size=70% t /tmp
$(cat laden)
ip link set lo up; ip link set eth0 up; ip addr add 10.0.2.15/24 dev eth0; ip route add default via 10.0.2.2
name=\$(sed 's/.*gast=\\([^ ]*\\).*/\\1/' /proc/cmdline)
until $einbinden; do sleep 2; done
touch /netz/\$name.da
until [ -f /netz/\$name.sh ]; do sleep 1; done
sh /netz/\$name.sh 2>&1
cp /tmp/maschine* /tmp/lehrkraft* /netz/tagebuecher
umount /netz
mount -o remount,rw / ; $einbinden; touch /netz/\$name.fertig; umount /netz
poweroff -f
INIT
chmod +x gast/init
(cd gast && find . | cpio -o -H newc 2>/dev/null | gzip -1) >gast.gz
for m in 1 2 3; do
    nice qemu-system-x86_64 -accel tcg,thread=single -smp 1 -m 1200 -nographic -no-reboot -kernel kern/boot/vmlinuz-* -initrd gast.gz \
        -append "console=ttyS0 quiet panic=-1 gast=gast$m" -netdev user,id=n -device virtio-net-pci,netdev=n </dev/null >"$ort/gast$m.log" 2>&1 &
    qemus="$qemus $!"
done
until [ -f frei/gast1.da ] && [ -f frei/gast2.da ] && [ -f frei/gast3.da ]; do
    sleep 1
done
nice python3 "$hier/viele_maschinen.py" "$build" --ort "$ort/frei" --minuten "$minuten" --maschinen "$maschinen" --tempo "$tempo" --netz ja \
    --gäste gast1,gast2,gast3
wait
qemus=
