# shellcheck shell=bash
# Sourced by object-manager: an installed OpenWBEM as a private instance on the disposable server, beside whatever the machine
# itself runs of it. The pid file's place is compiled into owcimomd; on the server, /var/run is the server's own.
# shellcheck disable=SC2154 # address, here, library_dir, log, pid_file, port and unload_idle are object-manager's

readonly instance=/run/openwbem
readonly their_pid_file=/var/run/owcimomd.pid
# What the import of the classes leaves behind. It takes seconds, so that it is done once for a build tree.
readonly kept_repository=$KV_BUILD_DIR/openwbem-repository

# Every item that would else have the installation's own value, which serves the machine.
configuration() {
    local prefix=$KV_OPENWBEM_ROOT idle_minutes=-1
    [ "$unload_idle" = no ] || idle_minutes=0
    cat <<TEXT
owcimomd.allow_anonymous = true
owcimomd.authentication_module = $prefix/lib/openwbem/authentication/libnonauthenticatingauthentication.so
owcimomd.allowed_users = *
owcimomd.datadir = $instance/repository
owcimomd.services_path = $prefix/lib/openwbem/services
owcimomd.request_handler_path = $prefix/lib/openwbem/requesthandlers
owcimomd.owlibdir = $prefix/lib/openwbem
owcimomd.libexecdir = $prefix/libexec/openwbem
owcimomd.wql_lib = $prefix/lib/libowwql.so
owcimomd.provider_ifc_libs = $prefix/lib/openwbem/provifcs
owcimomd.restart_on_error = false
cppprovifc.prov_location = $instance/c++providers
cppprovifc.prov_TTL = $idle_minutes
http_server.listen_addresses = $address
http_server.http_port = $port
http_server.https_port = -1
http_server.use_digest = false
http_server.allow_local_authentication = false
http_server.uds_filename = $instance/uds
log.main.type = file
log.main.location = $log
log.main.level = ERROR
log.main.format = %d{%H:%M:%S} [%t] %-5p %c %m
TEXT
}

# The unloading of idle libraries is a provider itself, looked for where all of them are.
provide_libraries() {
    mkdir -p $instance/c++providers
    cp "$library_dir/libLANProvider.so" $instance/c++providers
    [ "$unload_idle" = no ] ||
        cp "$KV_OPENWBEM_ROOT/lib/openwbem/c++providers/libowprovpollUnloader.so" $instance/c++providers
}

# openwbem PROGRAM [ARGUMENT...]: a program of the installation.
openwbem() {
    LD_LIBRARY_PATH=$KV_OPENWBEM_ROOT/lib "$KV_OPENWBEM_ROOT/$1" "${@:2}" </dev/null >>"$log" 2>&1
}

# owcimomd goes into the background by itself once it listens.
launch() {
    : >"$log"
    LD_PRELOAD=$KV_OBJECT_MANAGER_PRELOAD openwbem sbin/owcimomd -c $instance/openwbem.conf ||
        give_up "the object manager cannot start:"
    cp $their_pid_file "$pid_file"
}

import_classes() {
    local url=http://127.0.0.1:$port/root/cimv2
    if ! openwbem bin/owmofc -c -u "$url" "$KV_OPENWBEM_ROOT/share/openwbem/cim28/Core28_Qualifiers.mof" ||
        ! openwbem bin/owmofc -u "$url" "$here"/../../mof/*.mof; then
        give_up "the classes cannot be imported:"
    fi
}

make_repository() {
    local copy
    mkdir $instance/repository
    launch
    import_classes
    stop
    copy=$(mktemp -d "$kept_repository.XXXXXX")
    cp -r $instance/repository/. "$copy"
    # Another server may have been faster.
    mv -T "$copy" "$kept_repository" 2>/dev/null || rm -r "$copy"
}

start_openwbem() {
    provide_libraries
    configuration >$instance/openwbem.conf
    if [ ! -d "$kept_repository" ]; then
        make_repository
    elif [ ! -d $instance/repository ]; then
        cp -r "$kept_repository" $instance/repository
    fi
    launch
}
